// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/opcua/exchange.h"
#include "adapters/opcua/runtimenews.h"
#include "adapters/opcua/runtimenodes.h"

#include <memory>
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

    /// Asks for states, which come as news; a station that is not known gives none.
    void requestStates(UA_Client& client, const std::vector<std::string>& stations);
    /// Calls a method; `station` is its argument unless it is DownloadTutte. Its failure comes as
    /// news. Does not wait.
    void call(UA_Client& client, RuntimeMethod method, const std::string& station);

private:
    struct Watched {
        RuntimeLink* link;
        const RuntimeNodes::Station* station;
    };
    struct StateRequest;
    struct Call;

    void watchStations(UA_Client& client, UA_UInt32 subscription, const OperationLimits& limits);
    void watchErrors(UA_Client& client, UA_UInt32 subscription);
    void take(const std::string& station, const UA_DataValue& value);

    std::shared_ptr<RuntimeNewsQueue> news_;
    RuntimeNodes runtime_;
    OperationLimits limits_;
    std::vector<Watched> watched_;
    std::unordered_map<std::string, const RuntimeNodes::Station*> byName_;
};

}  // namespace velt::opcua
