// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/opcua/runtimeclientfactory.h"
#include "tests/adapters/opcua/adapterfixture.h"
#include "tests/adapters/opcua/runtimeserver.h"

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace velt::opcua::test {

/// A runtime client with a record of what it raised.
struct Panel {
    explicit Panel(std::shared_ptr<RuntimeClient> made) : client(std::move(made)) {
        client->Connessione.subscribe([this] {
            events.push_back("Connessione");
            // As a control does it.
            for (const std::string& station : client->ElencoRTU())
                client->RichiediStatoRTU(station);
        });
        client->Disconnessione.subscribe([this] { events.push_back("Disconnessione"); });
        client->ConnectionError.subscribe(
            [this](std::int32_t code) { events.push_back("Error " + std::to_string(code)); });
        client->Errore.subscribe([this](const std::string& message, const std::string& station) {
            events.push_back("Errore " + station + ": " + message);
        });
        client->Stato.subscribe([this](const std::string& station, std::int32_t code) {
            EXPECT_THAT(events, Contains("Connessione")) << "a state before Connessione";
            states[station].push_back(code);
        });
    }
    [[nodiscard]] bool shows(const std::string& station, std::int32_t code) const {
        const auto known = states.find(station);
        return known != states.end() && known->second.back() == code;
    }

    std::shared_ptr<RuntimeClient> client;
    std::vector<std::string> events;  ///< all but states
    std::map<std::string, std::vector<std::int32_t>> states;
};

class RuntimeFixture : public AdapterFixture {
protected:
    using Names = std::vector<std::string>;

    void start(const Names& stations, RuntimeServerOptions options = {}) {
        options.runtime = quickRuntime(stations);
        startWith(std::move(options));
    }
    void startWith(RuntimeServerOptions options) {
        options.server.shutdownNotice = 0ms;
        options.clock = clock.function();
        server = startRuntime(std::move(options));
    }
    void link(const std::string& endpoint) { panel.client->ConnettiRuntime("Prova", endpoint); }
    void linkAndWait() {
        link(server->endpoint());
        ASSERT_TRUE(until([this] { return panel.client->RuntimeAttivo(); }));
    }
    [[nodiscard]] bool shows(const std::string& station, std::int32_t code) {
        return until([&] { return panel.shows(station, code); });
    }
    [[nodiscard]] bool comes(const std::string& event) {
        return until([&] { return std::ranges::count(panel.events, event) > 0; });
    }
    /// Everything that was sent before has been answered after this.
    void settle(const std::string& station) {
        const std::size_t before = panel.states[station].size();
        panel.client->RichiediStatoRTU(station);
        ASSERT_TRUE(until([&] { return panel.states[station].size() > before; }));
    }

    HandClock clock;
    OpcUaRuntimeClientFactory factory{dispatcher_, {.configFile = {}, .log = log_}};
    Panel panel{factory.create()};
    std::unique_ptr<demo::OpcServer> server;
};

}  // namespace velt::opcua::test
