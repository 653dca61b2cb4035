// SPDX-License-Identifier: MIT
#include "demo/serversecurity.h"

#include "demo/plantserver.h"
#include "tests/demo/uaclient.h"
#include "tests/filebytes.h"
#include "tests/tempfolder.h"

#include <open62541/plugin/create_certificate.h>
#include <open62541/plugin/pki_default.h>

#include <array>
#include <fstream>

namespace velt::demo {
namespace {

namespace fs = std::filesystem;

/// A certificate of a client, made once for all tests.
struct Identity {
    Identity() {
        std::array subject = {opcua::borrowed("CN=Prova")};
        std::array names = {opcua::borrowed("URI:urn:velt:test:client")};
        UA_UInt16 bits = 2048;
        UA_KeyValuePair parameter{};
        parameter.key = uaName(0, "key-size-bits");
        UA_Variant_setScalar(&parameter.value, &bits, &UA_TYPES[UA_TYPES_UINT16]);
        UA_KeyValueMap parameters{1, &parameter};
        UA_CreateCertificate(silentLogger(), subject.data(), 1, names.data(), 1,
                             UA_CERTIFICATEFORMAT_DER, &parameters, &key, &certificate);
    }
    ~Identity() {
        UA_ByteString_clear(&key);
        UA_ByteString_clear(&certificate);
    }
    UA_ByteString key = UA_BYTESTRING_NULL;
    UA_ByteString certificate = UA_BYTESTRING_NULL;
};

class ServerSecurityTest : public testing::Test {
protected:
    void start(bool trusting) {
        fs::create_directories(pki / "trusted");
        if (trusting)
            std::ofstream(pki / "trusted" / "client.der", std::ios::binary)
                << opcua::view(identity.certificate);
        PlantServerOptions options;
        options.server.security = ServerSecurity{pki, "operatore", "segreta"};
        options.loadStations = options.loadVariables = 1;
        server = startPlantServer(std::move(options), clock);
    }

    UA_StatusCode connect(const char* user, const char* password) {
        UaClient client;
        UA_ClientConfig& config = client.config();
        UA_ClientConfig_setDefaultEncryption(&config, identity.certificate, identity.key, nullptr,
                                             0, nullptr, 0);
        UA_CertificateVerification_AcceptAll(&config.certificateVerification);
        UA_String_clear(&config.clientDescription.applicationUri);
        config.clientDescription.applicationUri = UA_String_fromChars("urn:velt:test:client");
        config.securityMode = UA_MESSAGESECURITYMODE_SIGNANDENCRYPT;
        return user ? UA_Client_connectUsername(client.get(), server->endpoint().c_str(), user,
                                                password)
                    : client.connect(server->endpoint());
    }

    const Identity identity;
    TempFolder folder;
    const fs::path pki = folder / "pki";
    SystemClock clock;
    std::unique_ptr<OpcServer> server;
};

TEST_F(ServerSecurityTest, AdmitsTrustedClientsWithTheRightPassword) {
    start(true);
    EXPECT_EQ(fs::status(pki / "own" / "key.der").permissions(),
              fs::perms::owner_read | fs::perms::owner_write);
    EXPECT_EQ(connect("operatore", "segreta"), UA_STATUSCODE_GOOD);
    EXPECT_NE(connect("operatore", "Segreta"), UA_STATUSCODE_GOOD);
    EXPECT_NE(connect(nullptr, nullptr), UA_STATUSCODE_GOOD);
    EXPECT_NE(UaClient().connect(server->endpoint()), UA_STATUSCODE_GOOD);  // nothing encrypted
}

TEST_F(ServerSecurityTest, AnEmptyTrustListTrustsNobody) {
    start(false);
    EXPECT_NE(connect("operatore", "segreta"), UA_STATUSCODE_GOOD);
}

}  // namespace
}  // namespace velt::demo
