// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/opcua/exchange.h"

#include <open62541/client_subscriptions.h>

#include <cstddef>
#include <functional>
#include <stop_token>
#include <vector>

/// What a server sends by itself. All on the session's thread.
namespace velt::opcua {

struct SubscriptionSettings {
    double interval = 1000;    ///< ms; how often news are sent
    UA_UInt32 keepAlive = 10;  ///< intervals without news until the server says that it lives
    UA_UInt32 lifetime = 100 * keepAlive;  ///< intervals without us until the server ends it
    bool publishing = true;
    void* context = nullptr;  ///< of `deleted`
    UA_Client_DeleteSubscriptionCallback deleted = nullptr;
};

/// The number of the new subscription; RuntimeError.
[[nodiscard]] UA_UInt32 createSubscription(UA_Client& client, const SubscriptionSettings& settings);

/// A node whose values are wanted.
struct MonitoredNode {
    const UA_NodeId* node;
    void* context;  ///< of `changed`
};

struct Monitoring {
    UA_UInt32 subscription = 0;
    double interval = 1000;  ///< ms; how often the server looks
    bool active = true;      ///< otherwise nothing is sent
    UA_Client_DataChangeNotificationCallback changed = nullptr;
};

/// Starts monitoring; `take` gets the server's answer to each node, by its number in `nodes`.
void monitor(UA_Client& client, const OperationLimits& limits, const Monitoring& how,
             const std::vector<MonitoredNode>& nodes,
             const std::function<void(std::size_t, const UA_MonitoredItemCreateResult&)>& take,
             const std::stop_token& stop = {});

}  // namespace velt::opcua
