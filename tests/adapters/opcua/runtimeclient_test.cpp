// SPDX-License-Identifier: MIT
#include "demo/runtimemodel.h"
#include "demo/uavalue.h"
#include "tests/adapters/opcua/runtimefixture.h"

#include <open62541/server.h>

namespace velt::opcua::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using Names = std::vector<std::string>;

class RuntimeClientTest : public RuntimeFixture {};

TEST_F(RuntimeClientTest, MirrorsTheStationsToEveryPanel) {
    start({"A", "B"});
    Panel other{factory.create()};
    other.client->ConnettiRuntime("Altro", server->endpoint());
    linkAndWait();
    EXPECT_EQ(panel.client->ElencoRTU(), Names({"A", "B"}));
    EXPECT_EQ(panel.client->Versione(), "2.4.1");
    EXPECT_EQ(panel.client->NomeProgetto(), "Acquedotto dimostrativo");
    ASSERT_TRUE(until([&] { return panel.shows("B", 0) && other.shows("A", 0); }));

    const auto bothShow = [&](const std::string& station, std::int32_t code) {
        return until([&] { return panel.shows(station, code) && other.shows(station, code); });
    };
    panel.client->ConnettiRTU("A");
    ASSERT_TRUE(bothShow("A", 1));
    pass();
    ASSERT_TRUE(bothShow("A", 2));
    EXPECT_THAT(other.states["A"], ElementsAre(0, 1, 2));
    other.client->ConnettiRTU("B");
    ASSERT_TRUE(bothShow("B", 3));
    other.client->DownloadRTU("A");
    ASSERT_TRUE(bothShow("A", 5));
    pass();
    ASSERT_TRUE(bothShow("A", 2));
    panel.client->DisconnettiRTU("A");
    ASSERT_TRUE(bothShow("A", 4));
    pass();
    ASSERT_TRUE(bothShow("A", 0));
    ASSERT_TRUE(bothShow("B", 0));
    panel.client->DownloadTutte();
    ASSERT_TRUE(bothShow("A", 1));
    pass();
    ASSERT_TRUE(bothShow("A", 5));
    EXPECT_THAT(panel.events, ElementsAre("Connessione"));
}

TEST_F(RuntimeClientTest, AStateIsToldWhenItChangesOrIsAskedFor) {
    start({"A", "B"});
    const auto quiet = factory.create();
    std::vector<std::string> told;
    quiet->Stato.subscribe([&](const std::string& station, std::int32_t code) {
        told.push_back(station + std::to_string(code));
    });
    quiet->ConnettiRuntime("Prova", server->endpoint());
    linkAndWait();
    ASSERT_TRUE(until([&] { return quiet->RuntimeAttivo(); }));
    panel.client->ConnettiRTU("B");
    ASSERT_TRUE(until([&] { return panel.shows("B", 1) && told.size() == 1; }));
    pass();
    ASSERT_TRUE(until([&] { return panel.shows("B", 2) && told.size() == 2; }));
    quiet->RichiediStatoRTU("A");
    quiet->RichiediStatoRTU("B");
    ASSERT_TRUE(until([&] { return told.size() == 4; }));
    EXPECT_THAT(told, ElementsAre("B1", "B2", "A0", "B2"));
}

TEST_F(RuntimeClientTest, ConnectingAgainToTheSameHostDoesNothing) {
    start({"A"});
    for (int i = 0; i < 5; ++i) link(server->endpoint());
    ASSERT_TRUE(until([&] { return panel.client->RuntimeAttivo(); }));
    link(server->endpoint());
    settle("A");
    EXPECT_THAT(panel.events, ElementsAre("Connessione"));
}

TEST_F(RuntimeClientTest, AnotherHostTakesThePlaceOfTheFirst) {
    start({"A"});
    linkAndWait();
    RuntimeServerOptions second;
    second.runtime = quickRuntime({"C", "D"});
    second.server.shutdownNotice = 0ms;
    const auto other = startRuntime(std::move(second));
    link(other->endpoint());
    EXPECT_FALSE(panel.client->RuntimeAttivo());
    ASSERT_TRUE(until([&] { return panel.client->RuntimeAttivo(); }));
    EXPECT_EQ(panel.client->ElencoRTU(), Names({"C", "D"}));
    server.reset();  // concerns nobody
    settle("C");
    EXPECT_THAT(panel.events, ElementsAre("Connessione", "Connessione"));
}

TEST_F(RuntimeClientTest, NothingWorksWithoutALink) {
    RuntimeClient& client = *panel.client;
    EXPECT_THROW(client.RichiediStatoRTU("A"), RuntimeError);
    EXPECT_THROW(client.ConnettiRTU("A"), RuntimeError);
    EXPECT_THROW(client.DisconnettiRTU("A"), RuntimeError);
    EXPECT_THROW(client.DownloadRTU("A"), RuntimeError);
    EXPECT_THROW(client.DownloadTutte(), RuntimeError);
    EXPECT_FALSE(client.RuntimeAttivo());
    client.ChiudiRuntime();
    start({"A"});
    linkAndWait();
    client.ChiudiRuntime();
    EXPECT_THROW(client.DownloadTutte(), RuntimeError);
    EXPECT_TRUE(client.ElencoRTU().empty());
    EXPECT_FALSE(until([&] { return panel.events.size() > 1; }, 300ms)) << "closing raises nothing";
}

TEST_F(RuntimeClientTest, TellsWhatGoesWrong) {
    start({"A", "Guasta"});
    linkAndWait();
    panel.client->ConnettiRTU("Guasta");
    ASSERT_TRUE(until([&] { return panel.shows("Guasta", 1); }));
    pass();
    ASSERT_TRUE(until([&] { return panel.has("Errore Guasta: nessuna risposta"); }));
    panel.client->DisconnettiRTU("A");
    ASSERT_TRUE(until([&] { return panel.has("Errore A: stazione non connessa"); }));
    panel.client->DownloadRTU("Z");
    ASSERT_TRUE(until([&] { return panel.has("Errore Z: stazione sconosciuta al runtime"); }));
    const auto before = panel.events;
    panel.client->RichiediStatoRTU("Z");  // would be asked for again after each error
    settle("A");
    EXPECT_EQ(panel.events, before);
    EXPECT_FALSE(panel.states.contains("Z"));
}

TEST_F(RuntimeClientTest, EventsWaitForTheHandler) {
    start({"A", "B"});
    int depth = 0;
    int handled = 0;
    panel.client->Stato.subscribe([&](const std::string& station, std::int32_t) {
        EXPECT_EQ(++depth, 1);
        if (++handled < 20) panel.client->RichiediStatoRTU(station);
        std::this_thread::sleep_for(5ms);  // the answer arrives meanwhile
        --depth;
    });
    linkAndWait();
    EXPECT_TRUE(until([&] { return handled >= 20; }));
}

TEST_F(RuntimeClientTest, AHandlersErrorDoesNotStopTheOtherNews) {
    start({"A", "B", "C"});
    int raised = 0;
    panel.client->Stato.subscribe([&](const std::string&, std::int32_t) {
        ++raised;
        throw RuntimeError(ErrorNumber::InvalidCall);
    });
    link(server->endpoint());
    int caught = 0;
    const auto end = std::chrono::steady_clock::now() + 15s;
    while (raised < 3 && std::chrono::steady_clock::now() < end) {
        try {
            (void)until([&] { return raised >= 3; });
        } catch (const RuntimeError&) {
            ++caught;
        }
    }
    EXPECT_GE(caught, 3);
    EXPECT_EQ(panel.states.size(), 3u);
}

TEST_F(RuntimeClientTest, TakesAnyNames) {
    const Names names = {"L'Aquila \"nord\"",
                         "Forlì è perché",
                         "C:\\rtu\\01",
                         std::string(200, 'x'),
                         "A.B/C;D=E",
                         "doppia",
                         "doppia",
                         "",
                         " "};
    start(names);
    linkAndWait();
    EXPECT_EQ(panel.client->ElencoRTU(), names);
    for (const std::string& name : names) {
        if (name.empty()) continue;  // no browse name: skipped by the panel as well
        ASSERT_TRUE(until([&] { return panel.shows(name, 0); })) << name;
        panel.client->ConnettiRTU(name);
        ASSERT_TRUE(until([&] { return panel.shows(name, 1); })) << name;
        panel.client->DisconnettiRTU(name);
        ASSERT_TRUE(until([&] { return panel.shows(name, 4); })) << name;
        pass();
        ASSERT_TRUE(until([&] { return panel.shows(name, 0); })) << name;
    }
}

/// Strikes the last station off the list that the runtime shows.
struct Unlisted final : demo::ServerPart {
    void addTo(UA_Server& server, std::uint16_t) override {
        std::size_t space = 0;
        UA_Server_getNamespaceByName(&server, borrowed(demo::runtimemodel::Space), &space);
        const auto index = static_cast<std::uint16_t>(space);
        const UA_QualifiedName name = demo::uaName(index, "ElencoRTU");
        UA_BrowsePathResult found =
            UA_Server_browseSimplifiedBrowsePath(&server, demo::uaId(index, "Runtime"), 1, &name);
        ASSERT_EQ(found.targetsSize, 1u);
        OwnedVariant value;
        ASSERT_EQ(demo::toUa(Names{"A"}, *value), UA_STATUSCODE_GOOD);
        EXPECT_EQ(UA_Server_writeValue(&server, found.targets[0].targetId.nodeId, *value),
                  UA_STATUSCODE_GOOD);
        UA_BrowsePathResult_clear(&found);
    }
};

TEST_F(RuntimeClientTest, PassesOnTheStateOfAStationThatIsNotListed) {
    RuntimeServerOptions options;
    options.runtime = quickRuntime({"A", "B"});
    options.more = std::make_unique<Unlisted>();
    startWith(std::move(options));
    linkAndWait();
    EXPECT_EQ(panel.client->ElencoRTU(), Names({"A"}));
    panel.client->ConnettiRTU("B");
    EXPECT_TRUE(until([&] { return panel.shows("B", 1); }));
}

TEST_F(RuntimeClientTest, SaysWhenTheRuntimeHasNothingToOffer) {
    const struct {
        Names stations;
        const char* project;
    } Cases[] = {{{}, "Progetto"}, {{"", ""}, "Progetto"}, {{"A"}, ""}};
    for (const auto& c : Cases) {
        RuntimeServerOptions options;
        options.runtime = quickRuntime(c.stations);
        options.runtime.project = c.project;
        startWith(std::move(options));
        panel.events.clear();
        link(server->endpoint());
        ASSERT_TRUE(until([&] { return !panel.events.empty(); }));
        EXPECT_THAT(panel.events, ElementsAre("ConnectionError 1"));
        EXPECT_FALSE(panel.client->RuntimeAttivo());
        server.reset();
        ASSERT_TRUE(Session::waitForAll(10s)) << "the link is closed";
    }
    EXPECT_FALSE(until([&] { return panel.events.size() > 1; }, 100ms));
}

TEST_F(RuntimeClientTest, OnlyThoseWhoMayCallTheMethods) {
    RuntimeServerOptions options;
    options.runtime = quickRuntime({"A"});
    options.anonymousMayCall = false;
    startWith(std::move(options));
    linkAndWait();
    panel.client->ConnettiRTU("A");
    ASSERT_TRUE(until([&] { return panel.events.size() == 2; }));
    EXPECT_EQ(panel.events[1], "Errore A: Il server nega l'accesso a questo utente");
    EXPECT_THAT(panel.states["A"], testing::Each(0));
}

}  // namespace
}  // namespace velt::opcua::test
