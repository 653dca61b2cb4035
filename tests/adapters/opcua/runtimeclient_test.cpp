// SPDX-License-Identifier: MIT
#include "demo/runtimemodel.h"
#include "demo/uavalue.h"
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
    EXPECT_EQ(panel.client->Versione(), "2.4.1");
    EXPECT_EQ(panel.client->NomeProgetto(), "Acquedotto dimostrativo");
    const auto bothShow = [&](const std::string& station, std::int32_t code) {
        return until([&] { return panel.shows(station, code) && other.shows(station, code); });
    };
    ASSERT_TRUE(bothShow("A", 0) && bothShow("B", 0));

    panel.client->ConnettiRTU("A");
    ASSERT_TRUE(bothShow("A", 1));
    pass();
    ASSERT_TRUE(bothShow("A", 2));
    EXPECT_THAT(other.states["A"], ElementsAre(0, 1, 2));
    ASSERT_TRUE(until([&] { return told.size() == 2; }));
    quiet->RichiediStatoRTU("B");
    quiet->RichiediStatoRTU("A");
    ASSERT_TRUE(until([&] { return told.size() == 4; }));
    EXPECT_EQ(told, Names({"A1", "A2", "B0", "A2"}));
    other.client->ConnettiRTU("B");
    ASSERT_TRUE(bothShow("B", 3));
    other.client->DownloadRTU("A");
    ASSERT_TRUE(bothShow("A", 5));
    pass();
    ASSERT_TRUE(bothShow("A", 2));
    panel.client->DisconnettiRTU("A");
    ASSERT_TRUE(bothShow("A", 4));
    pass();
    ASSERT_TRUE(bothShow("A", 0) && bothShow("B", 0));
    panel.client->DownloadTutte();
    ASSERT_TRUE(bothShow("A", 1));
    pass();
    ASSERT_TRUE(bothShow("A", 5));
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
    settle("D");
    RuntimeClient& client = *panel.client;
    client.RichiediStatoRTU("C");
    client.ChiudiRuntime();
    client.ChiudiRuntime();
    EXPECT_FALSE(client.RuntimeAttivo());
    EXPECT_THROW(client.RichiediStatoRTU("C"), RuntimeError);
    EXPECT_THROW(client.ConnettiRTU("C"), RuntimeError);
    EXPECT_THROW(client.DownloadTutte(), RuntimeError);
    EXPECT_TRUE(client.ElencoRTU().empty());
    const auto before = panel.states;
    EXPECT_FALSE(until([&] { return panel.states != before; }, 200ms)) << "closing raises nothing";
    EXPECT_EQ(panel.events, Names({"Connessione", "Connessione"}));
}

/// Strikes the last station off the list that the runtime shows, and lets a client monitor only
/// the errors and one station.
struct Oddities final : demo::ServerPart {
    void addTo(UA_Server& server, std::uint16_t) override {
        std::size_t space = 0;
        UA_Server_getNamespaceByName(&server, borrowed(demo::runtimemodel::Space), &space);
        const auto index = static_cast<std::uint16_t>(space);
        const UA_QualifiedName name = demo::uaName(index, "ElencoRTU");
        UA_BrowsePathResult found =
            UA_Server_browseSimplifiedBrowsePath(&server, demo::uaId(index, "Runtime"), 1, &name);
        ASSERT_EQ(found.targetsSize, 1u);
        OwnedVariant value;
        ASSERT_EQ(demo::toUa(std::vector<std::string>{"A"}, *value), UA_STATUSCODE_GOOD);
        EXPECT_EQ(UA_Server_writeValue(&server, found.targets[0].targetId.nodeId, *value),
                  UA_STATUSCODE_GOOD);
        UA_BrowsePathResult_clear(&found);
        UA_Server_getConfig(&server)->maxMonitoredItemsPerSubscription = 2;
    }
};

TEST_F(RuntimeClientTest, TellsWhatGoesWrong) {
    RuntimeServerOptions options;
    options.more = std::make_unique<Oddities>();
    start({"Guasta", "A"}, std::move(options));
    linkAndWait();
    EXPECT_EQ(panel.client->ElencoRTU(), Names({"A"}));
    ASSERT_TRUE(comes(
        "Errore A: i cambiamenti di stato non arrivano: Il server non accetta altre variabili"));
    ASSERT_TRUE(shows("A", 0)) << "when it is asked for";
    panel.client->ConnettiRTU("Guasta");
    ASSERT_TRUE(shows("Guasta", 1)) << "also of a station that is not listed";
    pass();
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
    int handled = 0;
    panel.client->Stato.subscribe([&](const std::string& station, std::int32_t) {
        EXPECT_EQ(++depth, 1);
        if (++handled < 20) panel.client->RichiediStatoRTU(station);
        std::this_thread::sleep_for(5ms);  // the answer arrives meanwhile
        --depth;
        throw RuntimeError(ErrorNumber::InvalidCall);
    });
    link(server->endpoint());
    int caught = 0;
    const auto end = std::chrono::steady_clock::now() + 15s;
    while (handled < 20 && std::chrono::steady_clock::now() < end) {
        try {
            (void)until([&] { return handled >= 20; });
        } catch (const RuntimeError&) {
            ++caught;
        }
    }
    EXPECT_GE(caught, 20);
    EXPECT_THAT(panel.states, SizeIs(3));
}

TEST_F(RuntimeClientTest, TakesAnyNames) {
    const Names names = {"L'Aquila \"nord\"",
                         "Forlì è perché",
                         "C:\\rtu\\01",
                         "A.B/C;D=E",
                         "doppia",
                         std::string(200, 'x'),
                         "doppia",
                         "",
                         " "};
    RuntimeServerOptions options;
    options.runtime = quickRuntime(names);
    options.runtime.freeLines = 10;
    startWith(std::move(options));
    linkAndWait();
    EXPECT_EQ(panel.client->ElencoRTU(), names);
    for (const std::string& name : names) {
        if (name.empty()) continue;  // no browse name: skipped by the panel as well
        panel.client->ConnettiRTU(name);
        ASSERT_TRUE(shows(name, 1)) << name;
    }
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
    EXPECT_FALSE(until([&] { return panel.events.size() > 1; }, 100ms));
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
