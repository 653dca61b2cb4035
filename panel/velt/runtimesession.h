// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/opcua/runtimeclientfactory.h"
#include "platform/queueddispatcher.h"

#include <chrono>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace velt::cli {

/// The link to a runtime for one command. The command's thread is the one that takes the events.
class RuntimeSession {
public:
    using Clock = std::chrono::steady_clock;

    /// RuntimeError with the reason when there is no link.
    RuntimeSession(const std::string& host, const std::string& configFile);

    [[nodiscard]] RuntimeClient& client() { return *client_; }
    /// Project and version.
    [[nodiscard]] std::string heading() const;
    /// Without empty names.
    [[nodiscard]] const std::vector<std::string>& stations() const { return stations_; }

    /// Whether the state of a station has been told, since it was last forgotten.
    [[nodiscard]] bool knows(const std::string& station) const { return states_.contains(station); }
    /// As last told; -1 when it has not been.
    [[nodiscard]] std::int32_t state(const std::string& station) const;
    /// Forgets a station's state, and all errors.
    void forget(const std::string& station);
    /// The last error that the runtime has told; "" for none.
    [[nodiscard]] const std::string& error() const { return error_; }
    [[nodiscard]] bool failed(const std::string& station) const {
        return failed_.contains(station);
    }

    /// Takes events until `done` or the time is over; whether it is done. RuntimeError when the
    /// link is lost. `done` is asked after each event, so it sees every state.
    bool listen(Clock::time_point end, const std::function<bool()>& done);
    /// Asks for all states, and waits until they are known; those that have none are left out after
    /// a while.
    void waitForStates();
    /// An error may come right behind the state that tells the end; RuntimeError when one has come.
    void waitForErrors();

    // Told after the session has taken note.
    std::function<void(const std::string& station, std::int32_t code)> onStato;
    std::function<void(const std::string& message, const std::string& station)> onErrore;

private:
    QueuedDispatcher dispatcher_;
    std::string reason_;  ///< why there is no link
    opcua::OpcUaRuntimeClientFactory factory_;
    std::shared_ptr<RuntimeClient> client_;
    std::vector<std::string> stations_;
    std::map<std::string, std::int32_t> states_;
    std::set<std::string> failed_;
    std::string error_;
    std::optional<std::int32_t> refused_;  ///< code of ConnectionError
    bool lost_ = false;
};

/// Name, code and name of the line's state, separated by tabs, and a line's end.
[[nodiscard]] std::string stateLine(const std::string& station, std::int32_t code);
[[nodiscard]] std::string errorLine(const std::string& message, const std::string& station);

}  // namespace velt::cli
