// SPDX-License-Identifier: MIT
#include "adapters/opcua/subscription.h"

#include "adapters/opcua/quality.h"
#include "adapters/opcua/status.h"
#include "adapters/opcua/times.h"
#include "adapters/opcua/values.h"

#include <open62541/client_subscriptions.h>

#include <algorithm>
#include <cstdint>

namespace velt::opcua {
namespace {

/// Without a bound some servers send nothing at all.
constexpr UA_UInt32 MaxNotificationsPerPublish = 20'000;
constexpr UA_UInt32 KeepAlive = 10;    // publishing intervals
constexpr UA_UInt32 Lifetime = 1'000;  // publishing intervals

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
    UA_CreateSubscriptionRequest request = UA_CreateSubscriptionRequest_default();
    request.requestedPublishingInterval = interval_;
    request.requestedMaxKeepAliveCount = KeepAlive;
    request.requestedLifetimeCount = Lifetime;
    request.maxNotificationsPerPublish = MaxNotificationsPerPublish;
    request.publishingEnabled = enabled_;
    const Owned<UA_CreateSubscriptionResponse, UA_TYPES_CREATESUBSCRIPTIONRESPONSE> response(
        UA_Client_Subscriptions_create(&client, request, this, nullptr, deleted));
    check(response->responseHeader.serviceResult);
    id_ = response->subscriptionId;
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
    std::vector<UA_MonitoredItemCreateRequest> items(wanted.size());
    std::vector<void*> contexts(wanted.size());
    std::vector<UA_Client_DataChangeNotificationCallback> callbacks(wanted.size(), changed);
    std::vector<UA_Client_DeleteMonitoredItemCallback> deletions(wanted.size(), nullptr);
    for (std::size_t i = 0; i < wanted.size(); ++i) {
        items[i] = UA_MonitoredItemCreateRequest_default(*wanted[i].node);
        items[i].requestedParameters.samplingInterval = interval_;
        if (!active) items[i].monitoringMode = UA_MONITORINGMODE_DISABLED;
        contexts[i] = contextOf(wanted[i].key);
        feed_->expect(wanted[i].key);
    }
    std::vector<UA_StatusCode> results(wanted.size(), UA_STATUSCODE_BADUNEXPECTEDERROR);
    try {
        exchange(
            client, sliceCount(wanted.size(), limits.monitor),
            [&](std::size_t number, UA_ClientAsyncServiceCallback callback, void* context) {
                const Slice part = slice(number, wanted.size(), limits.monitor);
                UA_CreateMonitoredItemsRequest request{};
                request.subscriptionId = id_;
                request.timestampsToReturn = UA_TIMESTAMPSTORETURN_BOTH;
                request.itemsToCreate = items.data() + part.first;
                request.itemsToCreateSize = part.size;
                return UA_Client_MonitoredItems_createDataChanges_async(
                    &client, request, contexts.data() + part.first, callbacks.data() + part.first,
                    deletions.data() + part.first, callback, context, nullptr);
            },
            [&](std::size_t number, void* response) {
                const Slice part = slice(number, wanted.size(), limits.monitor);
                const auto& answer = *static_cast<const UA_CreateMonitoredItemsResponse*>(response);
                for (std::size_t i = 0; i < std::min(part.size, answer.resultsSize); ++i) {
                    const std::size_t item = part.first + i;
                    results[item] = answer.results[i].statusCode;
                    if (!UA_StatusCode_isBad(results[item]))
                        items_[wanted[item].key] = answer.results[i].monitoredItemId;
                }
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
