// SPDX-License-Identifier: MIT
#include "tests/adapters/opcua/runtimefixture.h"

#include <open62541/server.h>

#include <thread>

namespace velt::opcua::test {
namespace {

using RuntimeClientTest = RuntimeFixture;

TEST_F(RuntimeClientTest, MirrorsTheStationsToEveryPanel) {
    start({"A", "B"});
    Panel other{factory.create()};
    other.client->ConnettiRuntime("Altro", server->endpoint());
    // Told nothing but what it asks for, and changes.
    const auto quiet = factory.create();
    Names told;
    quiet->Stato.subscribe([&](const std::string& station, std::int32_t code) {
        told.push_back(station + std::to_string(code));
    });
    quiet->ConnettiRuntime("Prova", server->endpoint());
    for (int i = 0; i < 5; ++i) link(server->endpoint());  // the same host: one link
    linkAndWait();
    ASSERT_TRUE(until([&] { return quiet->RuntimeAttivo(); }));
    link(server->endpoint());
    EXPECT_EQ(panel.client->ElencoRTU(), Names({"A", "B"}));
    const auto bothShow = [&](const std::string& station, std::int32_t code) {
        return until([&] { return panel.shows(station, code) && other.shows(station, code); });
    };
    ASSERT_TRUE(bothShow("A", 0) && bothShow("B", 0));

    panel.client->ConnettiRTU("A");
    ASSERT_TRUE(bothShow("A", 1));
    clock.pass(1s);
    ASSERT_TRUE(bothShow("A", 2));
    EXPECT_THAT(other.states["A"], ElementsAre(0, 1, 2));
    ASSERT_TRUE(until([&] { return told.size() == 2; }));
    quiet->RichiediStatoRTU("B");
    quiet->RichiediStatoRTU("A");
    ASSERT_TRUE(until([&] { return told.size() == 4; }));
    EXPECT_EQ(told, Names({"A1", "A2", "B0", "A2"}));
    EXPECT_THAT(panel.events, ElementsAre("Connessione"));
}

TEST_F(RuntimeClientTest, AnotherHostTakesThePlaceOfTheFirstAndClosingEndsEverything) {
    start({"A"});
    linkAndWait();
    auto first = std::move(server);
    start({"C", "D"});
    link(server->endpoint());
    EXPECT_FALSE(panel.client->RuntimeAttivo());
    ASSERT_TRUE(until([&] { return panel.client->RuntimeAttivo(); }));
    EXPECT_EQ(panel.client->ElencoRTU(), Names({"C", "D"}));
    first.reset();  // concerns nobody
    RuntimeClient& client = *panel.client;
    client.RichiediStatoRTU("C");
    client.ChiudiRuntime();
    EXPECT_FALSE(client.RuntimeAttivo());
    EXPECT_THROW(client.RichiediStatoRTU("C"), RuntimeError);
    EXPECT_THROW(client.ConnettiRTU("C"), RuntimeError);
    EXPECT_TRUE(client.ElencoRTU().empty());
    const auto before = panel.states;
    EXPECT_FALSE(until([&] { return panel.states != before; }, 200ms)) << "closing raises nothing";
    EXPECT_EQ(panel.events, Names({"Connessione", "Connessione"}));
}

/// Lets a client monitor only the errors and one station.
struct FewItems final : demo::ServerPart {
    void addTo(UA_Server& server, std::uint16_t) override {
        UA_Server_getConfig(&server)->maxMonitoredItemsPerSubscription = 2;
    }
};

TEST_F(RuntimeClientTest, TellsWhatGoesWrong) {
    RuntimeServerOptions options;
    options.more = std::make_unique<FewItems>();
    start({"Guasta", "A"}, std::move(options));
    linkAndWait();
    ASSERT_TRUE(comes(
        "Errore A: i cambiamenti di stato non arrivano: Il server non accetta altre variabili"));
    ASSERT_TRUE(shows("A", 0)) << "when it is asked for";
    panel.client->ConnettiRTU("Guasta");
    ASSERT_TRUE(shows("Guasta", 1));
    clock.pass(1s);
    ASSERT_TRUE(comes("Errore Guasta: nessuna risposta"));
    panel.client->DisconnettiRTU("A");
    ASSERT_TRUE(comes("Errore A: stazione non connessa"));
    panel.client->DownloadRTU("Z");
    ASSERT_TRUE(comes("Errore Z: stazione sconosciuta al runtime"));
    const auto before = panel.events;
    panel.client->RichiediStatoRTU("Z");  // would be asked for again after each error
    settle("A");
    EXPECT_EQ(panel.events, before);
    EXPECT_FALSE(panel.states.contains("Z"));
}

TEST_F(RuntimeClientTest, EventsWaitForTheHandlerAndItsErrorsDoNotStopThem) {
    start({"A", "B", "C"});
    int depth = 0;
    panel.client->Stato.subscribe([&](const std::string& station, std::int32_t) {
        EXPECT_EQ(++depth, 1);
        panel.client->RichiediStatoRTU(station);
        std::this_thread::sleep_for(5ms);  // the answer arrives meanwhile
        --depth;
        throw RuntimeError(ErrorNumber::InvalidCall);
    });
    link(server->endpoint());
    for (int i = 0; i < 20; ++i) EXPECT_THROW((void)until([] { return false; }), RuntimeError);
    EXPECT_THAT(panel.states, SizeIs(3));
}

TEST_F(RuntimeClientTest, SaysWhenTheRuntimeHasNothingToOffer) {
    const std::pair<Names, const char*> cases[] = {
        {{}, "Progetto"}, {{"", ""}, "Progetto"}, {{"A"}, ""}};
    for (const auto& [stations, project] : cases) {
        RuntimeServerOptions options;
        options.runtime = quickRuntime(stations);
        options.runtime.project = project;
        startWith(std::move(options));
        panel.events.clear();
        link(server->endpoint());
        ASSERT_TRUE(comes("Error 1"));
        EXPECT_FALSE(panel.client->RuntimeAttivo());
        server.reset();
        ASSERT_TRUE(Session::waitForAll(10s)) << "the link is closed";
    }
}

TEST_F(RuntimeClientTest, OnlyThoseWhoMayCallTheMethods) {
    RuntimeServerOptions options;
    options.anonymousMayCall = false;
    start({"A"}, std::move(options));
    linkAndWait();
    panel.client->ConnettiRTU("A");
    ASSERT_TRUE(comes("Errore A: Il server nega l'accesso a questo utente"));
    EXPECT_THAT(panel.states["A"], Each(0));
}

}  // namespace
}  // namespace velt::opcua::test
