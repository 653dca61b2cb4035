// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/opcua/runtimeclientfactory.h"
#include "adapters/opcua/session.h"
#include "platform/queueddispatcher.h"
#include "platform/runtimeerror.h"
#include "tests/adapters/opcua/runtimeserver.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace velt::opcua::test {

using namespace std::chrono_literals;

/// A runtime client with a record of what it raised.
struct Panel {
    explicit Panel(std::shared_ptr<RuntimeClient> made) : client(std::move(made)) {
        client->Connessione.subscribe([this] {
            note("Connessione");
            // As a control does it.
            for (const std::string& station : client->ElencoRTU())
                client->RichiediStatoRTU(station);
        });
        client->Disconnessione.subscribe([this] { note("Disconnessione"); });
        client->ConnectionError.subscribe(
            [this](std::int32_t code) { note("ConnectionError " + std::to_string(code)); });
        client->Errore.subscribe([this](const std::string& message, const std::string& station) {
            note("Errore " + station + ": " + message);
        });
        client->Stato.subscribe([this](const std::string& station, std::int32_t code) {
            EXPECT_FALSE(links.empty()) << "a state before Connessione";
            states[station].push_back(code);
        });
    }
    void note(const std::string& event) {
        if (event == "Connessione" || event == "Disconnessione") links.push_back(event);
        events.push_back(event);
    }
    [[nodiscard]] bool has(const std::string& event) const {
        return std::ranges::count(events, event) > 0;
    }
    [[nodiscard]] bool shows(const std::string& station, std::int32_t code) const {
        const auto known = states.find(station);
        return known != states.end() && known->second.back() == code;
    }

    std::shared_ptr<RuntimeClient> client;
    std::vector<std::string> events;  ///< all but states
    std::vector<std::string> links;
    std::map<std::string, std::vector<std::int32_t>> states;
};

class RuntimeFixture : public testing::Test {
protected:
    ~RuntimeFixture() override {
        panel.client.reset();
        EXPECT_TRUE(Session::waitForAll(10s)) << "threads are left";
    }

    void start(std::vector<std::string> stations) {
        RuntimeServerOptions options;
        options.runtime = quickRuntime(std::move(stations));
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

    template <typename Condition>
    [[nodiscard]] bool until(Condition condition, std::chrono::milliseconds time = 15s) {
        // A look now and then, for conditions that change without an event.
        const auto end = std::chrono::steady_clock::now() + time;
        while (!condition()) {
            if (std::chrono::steady_clock::now() > end) return false;
            (void)dispatcher.runUntil(condition, std::chrono::steady_clock::now() + 20ms);
        }
        return true;
    }

    /// Everything that was sent before has been answered after this.
    void settle(const std::string& station) {
        const std::size_t before = panel.states[station].size();
        panel.client->RichiediStatoRTU(station);
        ASSERT_TRUE(until([&] { return panel.states[station].size() > before; }));
    }

    /// Long enough for any call.
    void pass() { clock.pass(1s); }

    HandClock clock;
    QueuedDispatcher dispatcher;
    std::vector<std::string> logged;
    OpcUaRuntimeClientFactory factory{
        dispatcher,
        {.configFile = {}, .log = [this](const std::string& text) { logged.push_back(text); }}};
    Panel panel{factory.create()};
    std::unique_ptr<demo::OpcServer> server;
};

}  // namespace velt::opcua::test
