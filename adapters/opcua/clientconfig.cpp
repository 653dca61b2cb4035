// SPDX-License-Identifier: MIT
#include "adapters/opcua/clientconfig.h"

#include "adapters/opcua/configfile.h"
#include "adapters/opcua/endpoint.h"
#include "adapters/opcua/pki.h"
#include "adapters/opcua/status.h"
#include "adapters/opcua/ua.h"
#include "adapters/opcua/verification.h"

#include <open62541/client_config_default.h>

#include <vector>

namespace velt::opcua {
namespace {

constexpr std::string_view PolicyNone = "http://opcfoundation.org/UA/SecurityPolicy#None";
constexpr std::string_view PolicyBasic256Sha256 =
    "http://opcfoundation.org/UA/SecurityPolicy#Basic256Sha256";
constexpr UA_UInt32 MaxMessage = 256 * 1024 * 1024;  // bytes that a server may make us keep

/// The library's own messages repeat on the terminal what the caller is told as an error.
UA_Logger& silent() {
    static UA_Logger logger{nullptr, nullptr, nullptr};
    return logger;
}

void assign(UA_String& target, std::string_view text) {
    UA_String_clear(&target);
    target = copied(text);
}

void secure(UA_ClientConfig& config, const ConfigFile& file, const std::string& endpoint,
            std::shared_ptr<std::atomic<UA_StatusCode>> verdict) {
    const Pki pki(file.pkiFolder);
    const OwnCertificate own = pki.own();
    check(UA_ClientConfig_setDefaultEncryption(&config, borrowed(own.certificate),
                                               borrowed(own.key), nullptr, 0, nullptr, 0));
    VerificationRules rules;
    rules.trusted = pki.trusted();
    rules.issuers = pki.issuers();
    rules.revocations = pki.revocations();
    if (file.checkHost) rules.host = hostOf(endpoint);
    rules.rejected = [pki](std::string_view certificate) { pki.storeRejected(certificate); };
    rules.verdict = std::move(verdict);
    setVerification(config.certificateVerification, std::move(rules));
    // The name by which the server knows the owner of the certificate.
    assign(config.clientDescription.applicationUri, own.uri);
    assign(config.securityPolicyUri, PolicyBasic256Sha256);
    config.securityMode = file.security == ConfigFile::Security::Sign
                              ? UA_MESSAGESECURITYMODE_SIGN
                              : UA_MESSAGESECURITYMODE_SIGNANDENCRYPT;
}

}  // namespace

ClientSetup clientSetup(const OpcUaOptions& options, const std::string& endpoint) {
    ClientSetup setup;
    setup.verdict = std::make_shared<std::atomic<UA_StatusCode>>(UA_STATUSCODE_GOOD);
    setup.configure = [path = options.configFile, endpoint,
                       verdict = setup.verdict](UA_ClientConfig& config) {
        const ConfigFile file = path.empty() ? ConfigFile{} : readConfigFile(path);
        config.logging = &silent();
        check(UA_ClientConfig_setDefault(&config));
        config.localConnectionConfig.localMaxMessageSize = MaxMessage;
        if (file.security == ConfigFile::Security::None) {
            config.securityMode = UA_MESSAGESECURITYMODE_NONE;
            assign(config.securityPolicyUri, PolicyNone);
        } else {
            secure(config, file, endpoint, verdict);
        }
        if (!file.user.empty())
            check(UA_ClientConfig_setAuthenticationUsername(&config, file.user.c_str(),
                                                            file.password.c_str()));
    };
    return setup;
}

}  // namespace velt::opcua
