// SPDX-License-Identifier: MIT
// Encrypted connections between the adapter and the demo's server, and those that must not come
// about.
#include "adapters/opcua/pki.h"
#include "tests/adapters/opcua/runtimeserver.h"
#include "tests/adapters/opcua/serverfixture.h"
#include "tests/errorof.h"
#include "tests/filebytes.h"
#include "tests/tempfolder.h"

namespace velt::opcua::test {
namespace {

namespace fs = std::filesystem;
using velt::test::writeBytes;

/// The same certificate after its time. The signature does not fit any more, but a certificate that
/// is trusted by itself is not asked for it.
Certificate expired(Certificate given) {
    // The validity is two times in a row: from, until.
    const std::size_t from = given.certificate.find("\x17\x0D");
    const std::size_t until = given.certificate.find("\x17\x0D", from + 1);
    EXPECT_NE(until, std::string::npos);
    given.certificate.replace(from + 2, 2, "20");
    given.certificate.replace(until + 2, 2, "21");
    return given;
}

class SecurityTest : public ServerFixture {
protected:
    /// A server that wants encryption, user "anna" and password "segreto".
    std::unique_ptr<demo::OpcServer> start() {
        RuntimeServerOptions options;
        options.server.shutdownNotice = 0ms;
        options.server.security = demo::ServerSecurity{folder_ / "server", "anna", "segreto"};
        return startRuntime(std::move(options));
    }
    static Certificate certificateOf(const std::string& host) {
        return makeCertificate({"CN=Prova", {host, std::string("URI:") + demo::ServerUri}});
    }
    /// Why the adapter cannot connect by a configuration; "" when it can.
    std::string failure(const std::string& configuration) {
        const auto server = start();
        writeBytes(folder_ / "opc.ini", "[OPC]\n" + configuration);
        makeServer((folder_ / "opc.ini").string());
        const RuntimeError error = raisedBy([&] { server_->Connect("x", server->endpoint()); });
        EXPECT_EQ(server_->ServerState(), error.Number() == 0 ? opc::Running : opc::Disconnected);
        server_->Disconnect();
        return error.Number() == 0 ? "" : error.Description();
    }

    TempFolder folder_;
    Pki client_{folder_ / "pki"};
    const std::string own_ = client_.own().certificate;
    const std::string encrypted_ = "Security=SignAndEncrypt\nUser=anna\nPassword=segreto\n";
};

TEST_F(SecurityTest, ConnectsWhenBothSidesTrustEachOther) {
    const fs::path trusted = folder_ / "server/trusted";
    fs::create_directories(trusted);
    writeBytes(trusted / "client.der", own_);
    // Nobody is trusted by default. The client lays the server's certificate by.
    EXPECT_THAT(failure(encrypted_), HasSubstr("fidati"));
    const fs::directory_iterator rejected(folder_ / "pki/rejected");
    ASSERT_NE(rejected, fs::directory_iterator{});
    fs::rename(rejected->path(), folder_ / "pki/trusted/server.der");
    EXPECT_EQ(failure(encrypted_), "");
    fs::remove(trusted / "client.der");
    EXPECT_NE(failure(encrypted_), "") << "the server trusts nobody";
    writeBytes(trusted / "other.der", certificateOf("DNS:x").certificate);
    EXPECT_NE(failure(encrypted_), "") << "the server trusts somebody else";
}

TEST_F(SecurityTest, RefusesForAReasonThatIsTold) {
    const Certificate good = certificateOf("IP:127.0.0.1");
    const Certificate other = certificateOf("DNS:altrove");
    for (const char* name : {"server/own", "server/trusted"})
        fs::create_directories(folder_ / name);
    writeBytes(folder_ / "server/trusted/client.der", own_);
    struct Case {
        Certificate server;
        bool trusted;
        std::string options;
        const char* reason;
    };
    for (const Case& c : {
             Case{good, false, encrypted_, "fidati"},
             {other, true, encrypted_, "altro nodo"},
             {other, true, encrypted_ + "CheckHost=no\n", ""},
             {expired(good), true, encrypted_, "scaduto"},
             {good, true, encrypted_ + "Password=Segreto\n", "utente"},
             {good, true, "Security=None\n", "utente"},
         }) {
        writeBytes(folder_ / "server/own/cert.der", c.server.certificate);
        writeBytes(folder_ / "server/own/key.der", c.server.key);
        writeBytes(folder_ / "pki/trusted/server.der",
                   c.trusted ? c.server.certificate : other.certificate);
        const std::string reason = failure(c.options);
        EXPECT_EQ(reason.empty(), *c.reason == '\0') << c.options << reason;
        EXPECT_THAT(reason, HasSubstr(c.reason)) << c.options;
    }
}

}  // namespace
}  // namespace velt::opcua::test
