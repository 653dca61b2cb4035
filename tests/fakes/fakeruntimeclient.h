// SPDX-License-Identifier: MIT
// A runtime client that records what is asked of it. What the runtime does is played by raising
// its events.
#pragma once

#include "platform/runtimeclient.h"
#include "platform/runtimeerror.h"

#include <memory>
#include <string>
#include <vector>

namespace velt::fakes {

struct FakeRuntimeClient final : RuntimeClient {
    explicit FakeRuntimeClient(std::vector<std::string>& callLog) : log(callLog) {}

    void ConnettiRuntime(const std::string& application, const std::string& hostname) override {
        log.push_back("ConnettiRuntime " + application + " '" + hostname + "'");
        if (refusesToConnect) throw RuntimeError(ErrorNumber::InvalidCall);
    }
    void ChiudiRuntime() override {
        log.push_back("ChiudiRuntime");
        active = false;
    }
    void RichiediStatoRTU(const std::string& s) override { request("RichiediStatoRTU " + s); }
    void ConnettiRTU(const std::string& s) override { request("ConnettiRTU " + s); }
    void DisconnettiRTU(const std::string& s) override { request("DisconnettiRTU " + s); }
    void DownloadRTU(const std::string& s) override { request("DownloadRTU " + s); }
    void DownloadTutte() override { request("DownloadTutte"); }
    void request(const std::string& text) {
        log.push_back(text);
        if (!active) throw RuntimeError(ErrorNumber::ObjectNotSet);
    }
    std::vector<std::string> ElencoRTU() const override { return stations; }
    bool RuntimeAttivo() const override {
        ++reads;
        return flickers ? reads % 2 == 1 : active;
    }
    std::string Versione() const override { return "1.2.3"; }
    std::string NomeProgetto() const override { return "Acquedotto"; }

    // The runtime.
    void link(std::vector<std::string> names) {
        stations = std::move(names);
        active = true;
        Connessione.raise();
    }
    void lose() {
        active = false;
        Disconnessione.raise();
    }

    std::vector<std::string>& log;
    std::vector<std::string> stations;
    bool active = false;
    bool flickers = false;  ///< RuntimeAttivo is true at every other reading, first at the first
    bool refusesToConnect = false;
    mutable int reads = 0;  ///< of RuntimeAttivo
};

struct FakeRuntimeClientFactory final : RuntimeClientFactory {
    std::shared_ptr<RuntimeClient> create() override {
        auto client = std::make_shared<FakeRuntimeClient>(log);
        made.push_back(client);
        return client;
    }
    std::vector<std::weak_ptr<FakeRuntimeClient>> made;
    std::vector<std::string> log;  ///< of all clients, in order
};

}  // namespace velt::fakes
