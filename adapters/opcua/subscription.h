// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/opcua/exchange.h"
#include "adapters/opcua/feed.h"
#include "adapters/opcua/ua.h"

#include <memory>
#include <stop_token>
#include <unordered_map>
#include <vector>

namespace velt::opcua {

/// The server's side of a group: the values of monitored nodes go into a feed. All on the
/// session's thread; must live until the session's UA_Client has gone.
class Subscription {
public:
    explicit Subscription(std::shared_ptr<Feed> feed) : feed_(std::move(feed)) {}

    struct Wanted {
        Feed::Key key;
        NodeId node;
    };

    /// Milliseconds; how often values are sent. Before the first create().
    void interval(int milliseconds) { interval_ = milliseconds; }
    /// Whether the server sends what has changed.
    void publishing(UA_Client& client, bool enabled);

    /// Starts monitoring nodes; a status for each. The subscription itself is made with the first
    /// ones. A monitored node with `active` false sends nothing.
    [[nodiscard]] std::vector<UA_StatusCode> create(UA_Client& client,
                                                    const OperationLimits& limits,
                                                    const std::vector<Wanted>& wanted, bool active,
                                                    const std::stop_token& stop);
    /// Does not wait for the server's answer.
    void remove(UA_Client& client, const OperationLimits& limits,
                const std::vector<Feed::Key>& keys);
    /// Ends the subscription with all its items. False: the client may still bring values of it.
    bool destroy(UA_Client& client);

    [[nodiscard]] Feed& feed() { return *feed_; }

private:
    void ensure(UA_Client& client);
    static void changed(UA_Client* client, UA_UInt32 subscription, void* self, UA_UInt32 item,
                        void* key, UA_DataValue* value);
    static void deleted(UA_Client* client, UA_UInt32 subscription, void* self);

    std::shared_ptr<Feed> feed_;
    UA_UInt32 id_ = 0;  ///< 0: not made, or gone
    int interval_ = 1000;
    bool enabled_ = false;
    std::unordered_map<Feed::Key, UA_UInt32> items_;
};

}  // namespace velt::opcua
