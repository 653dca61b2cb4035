// SPDX-License-Identifier: MIT
// Runtimes that are not there, die, hang, change, or do not let everybody in.
#include "tests/adapters/opcua/runtimefixture.h"
#include "tests/adapters/opcua/serverprocess.h"
#include "tests/tempfolder.h"

#include <csignal>
#include <thread>

namespace velt::opcua::test {
namespace {

using RuntimeFaultsTest = RuntimeFixture;

TEST_F(RuntimeFaultsTest, AnAbsentRuntimeIsToldOncePerAttemptAndItsReasonOnce) {
    const TestServer plain([](Builder& build) { build.folder("PC_Server"); });
    const TempFolder folder;
    RuntimeServerOptions options;
    options.runtime = quickRuntime({"A"});
    options.server.security = demo::ServerSecurity{folder / "pki", "operatore", "segreta"};
    startWith(std::move(options));
    const std::pair<std::string, const char*> cases[] = {
        {"opc.tcp://127.0.0.1:" + std::to_string(freePort()), "non si raggiunge"},
        {plain.endpoint(), "Il server non offre il runtime"},
        {server->endpoint(), ""}};  // wants to know who calls
    for (const auto& [endpoint, reason] : cases) {
        logged_.clear();
        panel.events.clear();
        for (std::size_t attempt = 1; attempt <= 3; ++attempt) {
            for (int i = 0; i < 4; ++i) link(endpoint);  // those in between belong to the same one
            ASSERT_TRUE(until([&] { return panel.events.size() == attempt; }));
        }
        EXPECT_THAT(panel.events, Each("Error 0"));
        EXPECT_THAT(logged_, ElementsAre(HasSubstr(reason)));
    }
}

TEST_F(RuntimeFaultsTest, NobodyWaitsForAPortThatSaysNothing) {
    const ServerProcess mute;
    mute.signal(SIGSTOP);
    Panel(factory.create()).client->ConnettiRuntime("Prova", mute.endpoint());
    link(mute.endpoint());
    EXPECT_FALSE(until([&] { return !panel.events.empty(); }, 200ms));
    panel.client->ChiudiRuntime();
    EXPECT_FALSE(until([&] { return !panel.events.empty(); }, 200ms)) << "nobody waits any more";
    EXPECT_TRUE(Session::waitForAll(2s)) << "five, if one went on";
}

TEST_F(RuntimeFaultsTest, AFrozenRuntimeIsLostAndOneThatDiesInMidDownload) {
    const ServerProcess process;
    link(process.endpoint());
    ASSERT_TRUE(shows("B", 0));
    process.signal(SIGSTOP);
    panel.client->ConnettiRTU("A");
    panel.client->RichiediStatoRTU("A");
    ASSERT_TRUE(comes("Disconnessione"));
    process.signal(SIGCONT);
    link(process.endpoint());
    ASSERT_TRUE(until([&] { return panel.client->RuntimeAttivo(); }));
    panel.client->DownloadRTU("A");
    ASSERT_TRUE(shows("A", 5));
    process.signal(SIGKILL);
    ASSERT_TRUE(until([&] { return panel.events.size() == 4; }));
    EXPECT_FALSE(panel.client->RuntimeAttivo());
    EXPECT_THROW(panel.client->RichiediStatoRTU("A"), RuntimeError);
    EXPECT_EQ(panel.events,
              Names({"Connessione", "Disconnessione", "Connessione", "Disconnessione"}));
}

TEST_F(RuntimeFaultsTest, AnnouncedEndAndReturnWithOtherStations) {
    RuntimeServerOptions options;
    options.runtime = quickRuntime({"A", "B"});
    server = startRuntime(std::move(options));  // announces its end a second and a half before
    linkAndWait();
    RuntimeServerOptions next;
    next.server.port = server->port();
    std::thread end([this] { server.reset(); });
    EXPECT_TRUE(comes("Disconnessione"));
    EXPECT_THAT(logged_, ElementsAre(HasSubstr("Il server è in arresto")));
    end.join();
    const Names names = {"C:\\rtu\\01", "doppia", "A.B/C;D=E", "doppia", "", "D"};
    start(names, std::move(next));
    linkAndWait();
    EXPECT_EQ(panel.client->ElencoRTU(), names);
    EXPECT_TRUE(shows("doppia", 0) && shows("C:\\rtu\\01", 0));
    EXPECT_TRUE(shows("D", 0));
}

}  // namespace
}  // namespace velt::opcua::test
