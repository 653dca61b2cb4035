// SPDX-License-Identifier: MIT
// Runtimes that are not there, die, hang, change, or do not let everybody in.
#include "tests/adapters/opcua/runtimefixture.h"
#include "tests/adapters/opcua/serverprocess.h"
#include "tests/adapters/opcua/testserver.h"
#include "tests/tempfolder.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <csignal>

namespace velt::opcua::test {
namespace {

using std::chrono::steady_clock;
using testing::ElementsAre;
using testing::HasSubstr;

class RuntimeFaultsTest : public RuntimeFixture {};

TEST_F(RuntimeFaultsTest, AnAbsentRuntimeIsToldOncePerAttempt) {
    const std::string nobody = "opc.tcp://127.0.0.1:" + std::to_string(freePort());
    for (std::size_t attempt = 1; attempt <= 3; ++attempt) {
        for (int i = 0; i < 4; ++i) link(nobody);  // those in between belong to the same one
        ASSERT_TRUE(until([&] { return panel.events.size() == attempt; }));
    }
    EXPECT_THAT(panel.events, testing::Each("ConnectionError 0"));
    EXPECT_EQ(logged.size(), 1u) << "the same reason is told once";
}

TEST_F(RuntimeFaultsTest, AServerWithoutARuntimeIsNone) {
    const TestServer plain([](Builder& build) { build.folder("PC_Server"); });
    link(plain.endpoint());
    ASSERT_TRUE(until([&] { return !panel.events.empty(); }));
    EXPECT_THAT(panel.events, ElementsAre("ConnectionError 0"));
    EXPECT_THAT(logged, ElementsAre(HasSubstr("Il server non offre il runtime")));
}

TEST_F(RuntimeFaultsTest, NobodyWaitsForAPortThatSaysNothing) {
    const int listener = socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t length = sizeof address;
    auto* const generic = reinterpret_cast<sockaddr*>(&address);
    ASSERT_EQ(bind(listener, generic, length), 0);
    ASSERT_EQ(listen(listener, 5), 0);
    ASSERT_EQ(getsockname(listener, generic, &length), 0);
    const auto begin = steady_clock::now();
    link("opc.tcp://127.0.0.1:" + std::to_string(ntohs(address.sin_port)));
    EXPECT_FALSE(until([&] { return !panel.events.empty(); }, 200ms));
    panel.client->ChiudiRuntime();
    EXPECT_FALSE(until([&] { return !panel.events.empty(); }, 200ms)) << "nobody waits any more";
    EXPECT_LT(steady_clock::now() - begin, 2s);
    close(listener);
}

TEST_F(RuntimeFaultsTest, DeathInMidDownloadIsSeenAtOnce) {
    {
        const ServerProcess process;
        link(process.endpoint());
        ASSERT_TRUE(until([&] { return panel.shows("A", 0); }));
        panel.client->DownloadRTU("A");
        ASSERT_TRUE(until([&] { return panel.shows("A", 5); }));
        process.signal(SIGKILL);
        const auto begin = steady_clock::now();
        ASSERT_TRUE(until([&] { return panel.has("Disconnessione"); }));
        EXPECT_LT(steady_clock::now() - begin, 2s);
    }
    EXPECT_FALSE(panel.client->RuntimeAttivo());
    EXPECT_THROW(panel.client->RichiediStatoRTU("A"), RuntimeError);
    EXPECT_THAT(panel.events, ElementsAre("Connessione", "Disconnessione"));
}

TEST_F(RuntimeFaultsTest, AFrozenRuntimeIsLostInFiveSeconds) {
    const ServerProcess process;
    link(process.endpoint());
    ASSERT_TRUE(until([&] { return panel.shows("B", 0); }));
    process.signal(SIGSTOP);
    const auto begin = steady_clock::now();
    panel.client->ConnettiRTU("A");
    panel.client->RichiediStatoRTU("A");
    ASSERT_TRUE(until([&] { return panel.has("Disconnessione"); }));
    EXPECT_LT(steady_clock::now() - begin, 8s);  // five, on a machine that is not busy
    process.signal(SIGCONT);
    link(process.endpoint());
    ASSERT_TRUE(until([&] { return panel.links.size() == 3; }));
    EXPECT_THAT(panel.events, ElementsAre("Connessione", "Disconnessione", "Connessione"));
}

TEST_F(RuntimeFaultsTest, AnnouncedEndAndReturnWithOtherStations) {
    RuntimeServerOptions options;
    options.runtime = quickRuntime({"A", "B"});
    server = startRuntime(std::move(options));  // announces its end a second and a half before
    linkAndWait();
    const std::uint16_t port = server->port();
    std::thread end([this] { server.reset(); });
    EXPECT_TRUE(until([&] { return panel.has("Disconnessione"); }));
    end.join();

    RuntimeServerOptions next;
    next.runtime = quickRuntime({"B", "C", "D"});
    next.server.port = port;
    startWith(std::move(next));
    linkAndWait();
    EXPECT_EQ(panel.client->ElencoRTU(), (std::vector<std::string>{"B", "C", "D"}));
    EXPECT_TRUE(until([&] { return panel.shows("D", 0); }));
}

TEST_F(RuntimeFaultsTest, WithoutCredentialsNobodyGetsIn) {
    const TempFolder folder;
    RuntimeServerOptions options;
    options.runtime = quickRuntime({"A"});
    options.server.security = demo::ServerSecurity{folder / "pki", "operatore", "segreta"};
    startWith(std::move(options));
    link(server->endpoint());
    ASSERT_TRUE(until([&] { return !panel.events.empty(); }));
    EXPECT_THAT(panel.events, ElementsAre("ConnectionError 0"));
    EXPECT_EQ(logged.size(), 1u);
}

TEST_F(RuntimeFaultsTest, AClientMayGoWhileItIsBeingLinked) {
    start({"A"});
    for (int i = 0; i < 20; ++i) {
        Panel brief{factory.create()};
        brief.client->ConnettiRuntime("Prova", server->endpoint());
        (void)until([] { return false; }, std::chrono::milliseconds(i));
    }
    linkAndWait();
    settle("A");
}

}  // namespace
}  // namespace velt::opcua::test
