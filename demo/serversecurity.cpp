// SPDX-License-Identifier: MIT
#include "demo/serversecurity.h"

#include "demo/uaerror.h"
#include "demo/uavalue.h"

#include <open62541/plugin/accesscontrol_default.h>
#include <open62541/plugin/create_certificate.h>
#include <open62541/plugin/pki_default.h>
#include <open62541/server_config_default.h>

#include <array>
#include <fstream>
#include <iterator>
#include <string_view>
#include <system_error>
#include <vector>

namespace velt::demo {
namespace {

namespace fs = std::filesystem;

[[noreturn]] void fail(const fs::path& path) {
    throw RuntimeError(ErrorNumber::PathAccess, "Impossibile usare " + path.string());
}

std::string readFile(const fs::path& path) {
    std::ifstream in(path, std::ios::binary);
    std::string bytes{std::istreambuf_iterator<char>(in), {}};
    if (!in || bytes.empty()) fail(path);
    return bytes;
}

void writeFile(const fs::path& path, std::string_view bytes, fs::perms permissions) {
    std::ofstream out(path, std::ios::binary);
    std::error_code error;
    fs::permissions(path, permissions, error);  // before there is anything in it
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    if (!out.flush() || error) fail(path);
}

void makeCertificate(const fs::path& certificate, const fs::path& key, const UA_Logger* logger) {
    std::array subject = {opcua::borrowed("CN=Server dimostrativo"), opcua::borrowed("O=VELT")};
    const std::string uri = std::string("URI:") + ServerUri;
    std::array names = {opcua::borrowed("DNS:localhost"), opcua::borrowed("IP:127.0.0.1"),
                        opcua::borrowed(uri)};
    UA_UInt16 bits = 2048;
    UA_KeyValuePair parameter{};
    parameter.key = uaName(0, "key-size-bits");
    UA_Variant_setScalar(&parameter.value, &bits, &UA_TYPES[UA_TYPES_UINT16]);
    UA_KeyValueMap parameters{1, &parameter};
    UA_ByteString madeKey = UA_BYTESTRING_NULL;
    UA_ByteString made = UA_BYTESTRING_NULL;
    const UA_StatusCode status =
        UA_CreateCertificate(logger, subject.data(), subject.size(), names.data(), names.size(),
                             UA_CERTIFICATEFORMAT_DER, &parameters, &madeKey, &made);
    const std::string keyBytes(opcua::view(madeKey));
    const std::string bytes(opcua::view(made));
    UA_ByteString_clear(&madeKey);
    UA_ByteString_clear(&made);
    check(status, "Certificato del server");
    writeFile(key, keyBytes, fs::perms::owner_read | fs::perms::owner_write);
    writeFile(certificate, bytes,
              fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read |
                  fs::perms::others_read);
}

std::vector<std::string> certificatesIn(const fs::path& folder) {
    std::vector<std::string> all;
    for (const auto& entry : fs::directory_iterator(folder))
        if (entry.path().extension() == ".der") all.push_back(readFile(entry.path()));
    return all;
}

std::vector<UA_ByteString> views(const std::vector<std::string>& texts) {
    std::vector<UA_ByteString> all;
    for (const std::string& text : texts) all.push_back(opcua::borrowed(text));
    return all;
}

}  // namespace

void secure(UA_ServerConfig& config, const ServerSecurity& security) {
    std::error_code error;
    for (const char* folder : {"own", "trusted", "issuers"}) {
        fs::create_directories(security.pki / folder, error);
        if (error) fail(security.pki / folder);
    }
    const fs::path certificate = security.pki / "own" / "cert.der";
    const fs::path key = security.pki / "own" / "key.der";
    if (!fs::exists(certificate) || !fs::exists(key))
        makeCertificate(certificate, key, config.logging);
    const std::string certificateBytes = readFile(certificate);
    const std::string keyBytes = readFile(key);
    const std::vector<std::string> trusted = certificatesIn(security.pki / "trusted");
    const std::vector<std::string> issuers = certificatesIn(security.pki / "issuers");
    const std::vector<UA_ByteString> trust = views(trusted);
    const std::vector<UA_ByteString> issue = views(issuers);
    const UA_ByteString own = opcua::borrowed(certificateBytes);
    const UA_ByteString ownKey = opcua::borrowed(keyBytes);

    check(UA_ServerConfig_setBasics_withPort(&config, 0), "Configurazione del server");
    // The library's own setup would trust everybody when the list is empty.
    for (UA_CertificateVerification* verification :
         {&config.secureChannelPKI, &config.sessionPKI}) {
        if (verification->clear) verification->clear(verification);
        check(UA_CertificateVerification_Trustlist(verification, trust.data(), trust.size(),
                                                   issue.data(), issue.size(), nullptr, 0),
              "Certificati fidati");
    }
    check(UA_ServerConfig_addSecurityPolicyBasic256Sha256(&config, &own, &ownKey),
          "Certificato del server");
    // Without it no client could ask which endpoints there are.
    check(UA_ServerConfig_addSecurityPolicyNone(&config, &own), "Configurazione del server");
    config.securityPolicyNoneDiscoveryOnly = true;
    const UA_String policy =
        UA_STRING_STATIC("http://opcfoundation.org/UA/SecurityPolicy#Basic256Sha256");
    const UA_UsernamePasswordLogin login = {opcua::borrowed(security.user),
                                            opcua::borrowed(security.password)};
    check(UA_AccessControl_default(&config, false, &policy, 1, &login), "Accesso al server");
    check(UA_ServerConfig_addEndpoint(&config, policy, UA_MESSAGESECURITYMODE_SIGNANDENCRYPT),
          "Configurazione del server");
}

}  // namespace velt::demo
