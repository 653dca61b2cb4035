// SPDX-License-Identifier: MIT
#include "adapters/opcua/subscription.h"

#include "adapters/opcua/monitoring.h"
#include "adapters/opcua/quality.h"
#include "adapters/opcua/status.h"
#include "adapters/opcua/times.h"
#include "adapters/opcua/values.h"

#include <open62541/client_subscriptions.h>

#include <algorithm>
#include <cstdint>

namespace velt::opcua {
namespace {

void* contextOf(Feed::Key key) { return reinterpret_cast<void*>(static_cast<std::intptr_t>(key)); }
Feed::Key keyOf(void* context) {
    return static_cast<Feed::Key>(reinterpret_cast<std::intptr_t>(context));
}

Date timeOf(const UA_DataValue& value) {
    if (value.hasServerTimestamp) return toDate(value.serverTimestamp);
    return toDate(value.hasSourceTimestamp ? value.sourceTimestamp : UA_DateTime_now());
}

}  // namespace

void Subscription::ensure(UA_Client& client) {
    if (id_ != 0) return;
    items_.clear();
    id_ = createSubscription(client, {.interval = static_cast<double>(interval_),
                                      .publishing = enabled_,
                                      .context = this,
                                      .deleted = deleted});
}

void Subscription::publishing(UA_Client& client, bool enabled) {
    if (enabled == enabled_) return;
    enabled_ = enabled;
    if (id_ == 0) return;
    UA_SetPublishingModeRequest request{};
    request.publishingEnabled = enabled;
    request.subscriptionIds = &id_;
    request.subscriptionIdsSize = 1;
    const Owned<UA_SetPublishingModeResponse, UA_TYPES_SETPUBLISHINGMODERESPONSE> response(
        UA_Client_Subscriptions_setPublishingMode(&client, request));
}

std::vector<UA_StatusCode> Subscription::create(UA_Client& client, const OperationLimits& limits,
                                                const std::vector<Wanted>& wanted, bool active,
                                                const std::stop_token& stop) {
    ensure(client);
    std::vector<MonitoredNode> nodes;
    nodes.reserve(wanted.size());
    for (const Wanted& item : wanted) {
        nodes.push_back({item.node.get(), contextOf(item.key)});
        feed_->expect(item.key);
    }
    std::vector<UA_StatusCode> results(wanted.size(), UA_STATUSCODE_BADUNEXPECTEDERROR);
    try {
        monitor(
            client, limits, {id_, static_cast<double>(interval_), active, changed}, nodes,
            [&](std::size_t number, const UA_MonitoredItemCreateResult& result) {
                results[number] = result.statusCode;
                if (!UA_StatusCode_isBad(result.statusCode))
                    items_[wanted[number].key] = result.monitoredItemId;
            },
            stop);
    } catch (const RuntimeError&) {
        std::vector<Feed::Key> all;
        for (const Wanted& item : wanted) all.push_back(item.key);
        feed_->forget(all);
        remove(client, limits, all);
        throw;
    }
    std::vector<Feed::Key> refused;
    for (std::size_t i = 0; i < wanted.size(); ++i)
        if (UA_StatusCode_isBad(results[i])) refused.push_back(wanted[i].key);
    feed_->forget(refused);
    return results;
}

void Subscription::remove(UA_Client& client, const OperationLimits& limits,
                          const std::vector<Feed::Key>& keys) {
    std::vector<UA_UInt32> ids;
    for (const Feed::Key key : keys) {
        const auto found = items_.find(key);
        if (found == items_.end()) continue;
        ids.push_back(found->second);
        items_.erase(found);
    }
    if (ids.empty() || id_ == 0) return;
    // Where nothing is left the whole subscription goes: one small request instead of thousands of
    // numbers, and the next one starts afresh.
    if (items_.empty()) {
        (void)destroy(client);
        return;
    }
    for (std::size_t i = 0; i < sliceCount(ids.size(), limits.monitor); ++i) {
        const Slice part = slice(i, ids.size(), limits.monitor);
        UA_DeleteMonitoredItemsRequest request{};
        request.subscriptionId = id_;
        request.monitoredItemIds = ids.data() + part.first;
        request.monitoredItemIdsSize = part.size;
        // A server that cannot remove them sends values that nobody takes.
        (void)UA_Client_MonitoredItems_delete_async(
            &client, request, [](UA_Client*, void*, UA_UInt32, void*) {}, nullptr, nullptr);
    }
}

bool Subscription::destroy(UA_Client& client) {
    items_.clear();
    if (id_ == 0) return true;
    // A server that does not answer ends it by itself, when its lifetime is over.
    const UA_StatusCode status = UA_Client_Subscriptions_deleteSingle(&client, id_);
    id_ = 0;
    return status == UA_STATUSCODE_GOOD;
}

void Subscription::changed(UA_Client* /*client*/, UA_UInt32 /*subscription*/, void* self,
                           UA_UInt32 /*item*/, void* key, UA_DataValue* value) {
    Feed::Update update;
    const UA_StatusCode status = value->hasStatus ? value->status : UA_STATUSCODE_GOOD;
    update.quality = qualityOf(status);
    update.time = timeOf(*value);
    if (value->hasValue) update.value = toVariant(value->value);
    static_cast<Subscription*>(self)->feed_->put(keyOf(key), std::move(update));
}

void Subscription::deleted(UA_Client* /*client*/, UA_UInt32 subscription, void* self) {
    auto* const mine = static_cast<Subscription*>(self);
    if (mine->id_ == subscription) mine->id_ = 0;
}

}  // namespace velt::opcua
