// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/opcua/exchange.h"
#include "adapters/opcua/runtimenews.h"
#include "adapters/opcua/runtimenodes.h"

#include <cstdint>
#include <deque>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace velt::opcua {

/// What the thread of a session does with a runtime: watches its stations and errors, asks, calls.
/// All on that thread; must live until the session's UA_Client has gone.
class RuntimeLink {
public:
    explicit RuntimeLink(std::shared_ptr<RuntimeNewsQueue> news) : news_(std::move(news)) {}

    /// Finds the runtime and watches it; RuntimeError when there is none.
    void open(UA_Client& client);
    [[nodiscard]] const RuntimeNodes& runtime() const { return runtime_; }

    /// Asks for states, which come as news, as changes do; a station that is not known gives none.
    void requestStates(UA_Client& client, const std::vector<std::string>& stations);
    /// Calls a method; `station` is its argument unless it is DownloadTutte. Its failure comes as
    /// news. Does not wait.
    void call(UA_Client& client, RuntimeMethod method, const std::string& station);

private:
    struct Watched {
        RuntimeLink* link;
        std::string name;
        NodeId stato;
        std::optional<std::int32_t> code;  ///< as last told by the server
        UA_DateTime time = 0;              ///< of that
    };
    struct StateRequest;
    struct Call;

    /// The states that are not told unless somebody asks, since they are no changes.
    void readBeginning(UA_Client& client);
    /// A station that the server does not monitor is told as an error.
    void watchStations(UA_Client& client, UA_UInt32 subscription);
    void watchErrors(UA_Client& client, UA_UInt32 subscription);
    static void take(Watched& station, const UA_DataValue& value, bool asked);

    std::shared_ptr<RuntimeNewsQueue> news_;
    RuntimeNodes runtime_;
    OperationLimits limits_;
    std::deque<Watched> watched_;  // a deque: the client keeps their addresses
    std::unordered_map<std::string, Watched*> byName_;
};

}  // namespace velt::opcua
