// SPDX-License-Identifier: MIT
#include "adapters/opcua/monitoring.h"

#include "adapters/opcua/status.h"
#include "adapters/opcua/ua.h"

namespace velt::opcua {
namespace {

/// Without a bound some servers send nothing at all.
constexpr UA_UInt32 MaxNotificationsPerPublish = 20'000;

}  // namespace

UA_UInt32 createSubscription(UA_Client& client, const SubscriptionSettings& settings) {
    UA_CreateSubscriptionRequest request = UA_CreateSubscriptionRequest_default();
    request.requestedPublishingInterval = settings.interval;
    request.requestedMaxKeepAliveCount = settings.keepAlive;
    request.requestedLifetimeCount = settings.lifetime;
    request.maxNotificationsPerPublish = MaxNotificationsPerPublish;
    request.publishingEnabled = settings.publishing;
    const Owned<UA_CreateSubscriptionResponse, UA_TYPES_CREATESUBSCRIPTIONRESPONSE> response(
        UA_Client_Subscriptions_create(&client, request, settings.context, nullptr,
                                       settings.deleted));
    check(response->responseHeader.serviceResult);
    return response->subscriptionId;
}

void monitor(UA_Client& client, const OperationLimits& limits, const Monitoring& how,
             const std::vector<MonitoredNode>& nodes,
             const std::function<void(std::size_t, const UA_MonitoredItemCreateResult&)>& take,
             const std::stop_token& stop) {
    std::vector<UA_MonitoredItemCreateRequest> items;
    std::vector<void*> contexts;
    items.reserve(nodes.size());
    contexts.reserve(nodes.size());
    for (const MonitoredNode& node : nodes) {
        items.push_back(UA_MonitoredItemCreateRequest_default(*node.node));
        items.back().requestedParameters.samplingInterval = how.interval;
        if (!how.active) items.back().monitoringMode = UA_MONITORINGMODE_DISABLED;
        contexts.push_back(node.context);
    }
    std::vector<UA_Client_DataChangeNotificationCallback> callbacks(nodes.size(), how.changed);
    std::vector<UA_Client_DeleteMonitoredItemCallback> deletions(nodes.size(), nullptr);
    exchange(
        client, sliceCount(nodes.size(), limits.monitor),
        [&](std::size_t number, UA_ClientAsyncServiceCallback callback, void* context) {
            const Slice part = slice(number, nodes.size(), limits.monitor);
            UA_CreateMonitoredItemsRequest request{};
            request.subscriptionId = how.subscription;
            request.timestampsToReturn = UA_TIMESTAMPSTORETURN_BOTH;
            request.itemsToCreate = items.data() + part.first;
            request.itemsToCreateSize = part.size;
            return UA_Client_MonitoredItems_createDataChanges_async(
                &client, request, contexts.data() + part.first, callbacks.data() + part.first,
                deletions.data() + part.first, callback, context, nullptr);
        },
        [&](std::size_t number, void* response) {
            eachResult(slice(number, nodes.size(), limits.monitor),
                       *static_cast<const UA_CreateMonitoredItemsResponse*>(response), take);
        },
        stop);
}

}  // namespace velt::opcua
