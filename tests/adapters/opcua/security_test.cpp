// SPDX-License-Identifier: MIT
// Encrypted connections, and those that must not come about.
#include "adapters/opcua/pki.h"
#include "tests/adapters/opcua/serverfixture.h"
#include "tests/filebytes.h"
#include "tests/tempfolder.h"

#include <open62541/plugin/accesscontrol_default.h>
#include <open62541/plugin/create_certificate.h>
#include <open62541/plugin/pki_default.h>
#include <open62541/server_config_default.h>

#include <gmock/gmock.h>

namespace velt::opcua::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

struct Identity {
    OwnedBytes certificate;
    OwnedBytes key;
};

Identity makeIdentity(const std::string& host, UA_UInt16 days) {
    const UA_Logger silent{nullptr, nullptr, nullptr};
    const UA_String subject = borrowed("CN=Prova");
    const UA_String names[] = {borrowed(host), borrowed("URI:urn:prova:server")};
    UA_KeyValueMap parameters = UA_KEYVALUEMAP_NULL;
    const auto set = [&](const char* name, UA_UInt16 value) {
        UA_KeyValueMap_setScalar(&parameters, {0, borrowed(name)}, &value,
                                 &UA_TYPES[UA_TYPES_UINT16]);
    };
    set("expires-in-days", days);
    set("key-size-bits", 2048);
    Identity identity;
    UA_CreateCertificate(&silent, &subject, 1, names, 2, UA_CERTIFICATEFORMAT_DER, &parameters,
                         identity.key.get(), identity.certificate.get());
    UA_KeyValueMap_clear(&parameters);
    return identity;
}

/// The same identity after its time. The signature does not fit any more, but a certificate that is
/// trusted by itself is not asked for it.
Identity expire(Identity identity) {
    const std::string bytes = toText(*identity.certificate);
    // The validity is two times in a row: from, until.
    const std::size_t first = bytes.find("\x17\x0D");
    const std::size_t second = bytes.find("\x17\x0D", first + 1);
    EXPECT_NE(second, std::string::npos);
    for (const std::size_t time : {first, second}) {
        identity.certificate->data[time + 2] = '2';
        identity.certificate->data[time + 3] = time == first ? '0' : '1';
    }
    return identity;
}

class SecurityTest : public ServerFixture {
protected:
    /// A server that wants encryption, user "anna" and password "segreto", and trusts the client.
    TestServer::Configure secure(const Identity& identity, const std::string& trusted) {
        return [&identity, trusted](UA_ServerConfig& config, std::uint16_t port) {
            const UA_ByteString trust = borrowed(trusted);
            UA_ServerConfig_setDefaultWithSecureSecurityPolicies(
                &config, port, identity.certificate.get(), identity.key.get(), &trust, 1, nullptr,
                0, nullptr, 0);
            UA_ServerConfig_addSecurityPolicyNone(&config, identity.certificate.get());
            UA_String_clear(&config.applicationDescription.applicationUri);
            config.applicationDescription.applicationUri = copied("urn:prova:server");
            UA_UsernamePasswordLogin login{borrowed("anna"), borrowed("segreto")};
            config.accessControl.clear(&config.accessControl);
            const UA_String policy =
                borrowed("http://opcfoundation.org/UA/SecurityPolicy#Basic256Sha256");
            UA_AccessControl_default(&config, false, &policy, 1, &login);
        };
    }

    void options(const std::string& text) {
        velt::test::writeBytes(folder_ / "opc.ini", "[OPC]\n" + text);
        factory_.options({(folder_ / "opc.ini").string(), {}});
        server_ = factory_.create();
    }

    std::string failure(const std::string& endpoint) {
        try {
            server_->Connect("x", endpoint);
        } catch (const RuntimeError& error) {
            return error.Description();
        }
        return "";
    }

    TempFolder folder_;
    Pki pki_{folder_ / "pki"};
    static constexpr const char* Encrypted =
        "Security=SignAndEncrypt\nUser=anna\nPassword=segreto\n";
};

TEST_F(SecurityTest, ConnectsWhenBothSidesTrustEachOther) {
    const Identity identity = makeIdentity("IP:127.0.0.1", 30);
    const std::string client = pki_.own().certificate;
    TestServer server([](Builder& build) { build.variable("A", build.folder("RTU01"), 1); },
                      secure(identity, client));
    options(Encrypted);
    // Nobody is trusted by default; the server's certificate is laid by for the integrator.
    EXPECT_THAT(failure(server.endpoint()), HasSubstr("fidati"));
    const std::filesystem::directory_iterator rejected(folder_ / "pki/rejected");
    ASSERT_NE(rejected, std::filesystem::directory_iterator{});
    std::filesystem::rename(rejected->path(), folder_ / "pki/trusted/server.der");
    connect(server.endpoint());
    EXPECT_THAT(itemIDs("RTU01"), ElementsAre("RTU01.A"));
}

TEST_F(SecurityTest, RefusesForAReasonThatIsTold) {
    const Identity good = makeIdentity("IP:127.0.0.1", 30);
    const Identity other = makeIdentity("DNS:altrove", 30);
    const Identity expired = expire(makeIdentity("IP:127.0.0.1", 30));
    const std::string client = pki_.own().certificate;
    struct Case {
        const Identity& server;
        bool trusted;
        std::string options;
        const char* reason;
    };
    const std::string encrypted = Encrypted;
    for (const Case& c : {
             Case{good, false, encrypted, "fidati"},
             {other, true, encrypted, "altro nodo"},
             {other, true, encrypted + "CheckHost=no\n", ""},
             {expired, true, encrypted, "scaduto"},
             {good, true, "Security=SignAndEncrypt\nUser=anna\nPassword=sbagliata\n", "utente"},
             {good, true, "Security=SignAndEncrypt\n", "utente"},
             {good, true, "Security=None\n", "utente"},
         }) {
        TestServer server([](Builder&) {}, secure(c.server, client));
        options(c.options);
        velt::test::writeBytes(
            folder_ / "pki/trusted/server.der",
            c.trusted ? toText(*c.server.certificate) : toText(*other.certificate));
        const std::string reason = failure(server.endpoint());
        EXPECT_EQ(reason.empty(), *c.reason == '\0') << c.options << reason;
        EXPECT_THAT(reason, HasSubstr(c.reason)) << c.options;
    }
}

TEST_F(SecurityTest, AServerThatDoesNotTrustTheClient) {
    const Identity good = makeIdentity("IP:127.0.0.1", 30);
    (void)pki_.own();
    TestServer server([](Builder&) {},
                      secure(good, toText(*makeIdentity("DNS:x", 30).certificate)));
    options(Encrypted);
    velt::test::writeBytes(folder_ / "pki/trusted/server.der", toText(*good.certificate));
    EXPECT_NE(failure(server.endpoint()), "");
    EXPECT_EQ(server_->ServerState(), opc::Disconnected);
}

}  // namespace
}  // namespace velt::opcua::test
