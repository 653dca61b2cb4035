// SPDX-License-Identifier: MIT
#include "adapters/opcua/opcuagroup.h"

#include <algorithm>

namespace velt::opcua {
namespace {

/// Items of one DataChange: few enough that a window stays alive between two of them.
constexpr std::size_t MostAtOnce = 1'000;

}  // namespace

std::shared_ptr<OpcUaGroup> OpcUaGroup::create(std::shared_ptr<Connection> connection,
                                               std::shared_ptr<Directory> directory,
                                               const std::shared_ptr<Mailbox>& mailbox, bool active,
                                               int rate) {
    std::shared_ptr<OpcUaGroup> group(new OpcUaGroup);
    group->connection_ = std::move(connection);
    group->active_ = active;
    group->feed_ = std::make_shared<Feed>([mailbox, weak = std::weak_ptr(group)] {
        mailbox->post([weak] {
            if (const auto alive = weak.lock()) alive->deliver();
        });
    });
    group->subscription_ = std::make_shared<Subscription>(group->feed_);
    group->subscription_->interval(rate);
    group->items_ = std::make_unique<OpcUaItems>(group->connection_, std::move(directory),
                                                 group->subscription_);
    group->connection_->post([subscription = group->subscription_](UA_Client&, ThreadSide& side) {
        side.subscriptions.push_back(subscription);
    });
    return group;
}

void OpcUaGroup::IsSubscribed(bool subscribed) {
    subscribed_ = subscribed;
    connection_->post(
        [subscription = subscription_, enabled = subscribed && active_](
            UA_Client& client, ThreadSide&) { subscription->publishing(client, enabled); });
}

void OpcUaGroup::deliver() {
    const DataChangeArgs args = feed_->take(MostAtOnce);
    // The rest has a turn of its own, also when the handler raises an error.
    feed_->flush();
    if (!ended_ && subscribed_ && !args.ClientHandles.empty()) DataChange.raise(args);
}

void OpcUaGroup::end() {
    if (ended_) return;
    ended_ = true;
    feed_->clear();
    connection_->post([subscription = subscription_](UA_Client& client, ThreadSide& side) {
        // Its callbacks may come until the client knows that the server has ended it.
        if (subscription->destroy(client)) std::erase(side.subscriptions, subscription);
    });
}

}  // namespace velt::opcua
