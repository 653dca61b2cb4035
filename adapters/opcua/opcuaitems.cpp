// SPDX-License-Identifier: MIT
#include "adapters/opcua/opcuaitems.h"

#include "adapters/opcua/status.h"

#include <algorithm>
#include <unordered_set>

namespace velt::opcua {
namespace {

constexpr std::int32_t InvalidHandle =
    static_cast<std::int32_t>(0xC0040001);  // OPC_E_INVALIDHANDLE

}  // namespace

OpcUaItems::Created OpcUaItems::createAtServer(const std::vector<Prepared>& items,
                                               const std::vector<std::size_t>& untyped) {
    std::vector<Subscription::Wanted> wanted;
    wanted.reserve(items.size());
    for (const Prepared& item : items) wanted.push_back({item.key, item.node});
    std::vector<NodeId> nodes;
    nodes.reserve(untyped.size());
    for (const std::size_t i : untyped) nodes.push_back(items[i].node);
    return connection_->wait(
        [subscription = subscription_, wanted = std::move(wanted), nodes = std::move(nodes),
         active = active_](UA_Client& client, ThreadSide& side, std::stop_token stop) {
            Created created;
            if (!nodes.empty()) created.types = readTypes(client, side.limits, nodes, stop);
            created.statuses = subscription->create(client, side.limits, wanted, active, stop);
            return created;
        });
}

std::vector<OpcUaItems::Prepared> OpcUaItems::create(const std::vector<std::string>& itemIDs) {
    std::vector<Prepared> all(itemIDs.size());
    std::vector<Prepared> asked;
    std::vector<std::size_t> places;   // of `asked` in `all`
    std::vector<std::size_t> untyped;  // in `asked`
    for (std::size_t i = 0; i < itemIDs.size(); ++i) {
        Directory::Entry* const entry = directory_->find(itemIDs[i]);
        if (!entry) {
            all[i].status = UA_STATUSCODE_BADNODEIDUNKNOWN;
            continue;
        }
        if (!entry->type) untyped.push_back(asked.size());
        if (lastKey_ == INT32_MAX) throw RuntimeError(ErrorNumber::Overflow);
        asked.push_back(
            {UA_STATUSCODE_GOOD, entry->id, entry->type.value_or(ValueType{}), ++lastKey_});
        places.push_back(i);
    }
    if (asked.empty()) return all;
    const Created created = createAtServer(asked, untyped);
    for (std::size_t i = 0; i < untyped.size(); ++i) asked[untyped[i]].type = created.types[i];
    for (std::size_t i = 0; i < asked.size(); ++i) {
        asked[i].status = created.statuses[i];
        all[places[i]] = std::move(asked[i]);
    }
    return all;
}

void OpcUaItems::ExpectItems(const std::vector<std::string>& itemIDs) {
    std::vector<Prepared> prepared;
    try {
        prepared = create(itemIDs);
    } catch (const RuntimeError&) {
        Prepared refusal;
        refusal.status = UA_STATUSCODE_BADREQUESTINTERRUPTED;
        for (const std::string& id : itemIDs) expected_[id].push_back(refusal);
        throw;
    }
    for (std::size_t i = 0; i < itemIDs.size(); ++i)
        expected_[itemIDs[i]].push_back(std::move(prepared[i]));
}

void OpcUaItems::ExpectationsDone() {
    std::vector<Feed::Key> unclaimed;
    for (const auto& [id, waiting] : expected_)
        for (const Prepared& item : waiting)
            if (!UA_StatusCode_isBad(item.status)) unclaimed.push_back(item.key);
    expected_.clear();
    forget(unclaimed);
}

std::shared_ptr<OPCItem> OpcUaItems::AddItem(const std::string& itemID, std::int32_t clientHandle) {
    Prepared prepared;
    const auto waiting = expected_.find(itemID);
    if (waiting != expected_.end() && !waiting->second.empty()) {
        prepared = std::move(waiting->second.front());
        waiting->second.pop_front();
    } else {
        prepared = std::move(create({itemID}).front());
    }
    check(prepared.status);
    auto item =
        std::make_shared<OpcUaItem>(OpcUaItem::Identity{itemID, std::move(prepared.node),
                                                        prepared.type, clientHandle, prepared.key},
                                    connection_);
    items_.push_back(item);
    byClient_[clientHandle] = item;
    subscription_->feed().claim(prepared.key, clientHandle);
    return item;
}

std::int32_t OpcUaItems::Count() const { return static_cast<std::int32_t>(items_.size()); }

std::shared_ptr<OPCItem> OpcUaItems::Item(std::int32_t index) const {
    if (index < 1 || index > Count()) throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
    return items_[static_cast<std::size_t>(index - 1)];
}

std::shared_ptr<OPCItem> OpcUaItems::ItemOfClient(std::int32_t clientHandle) const {
    const auto found = byClient_.find(clientHandle);
    return found == byClient_.end() ? nullptr : found->second;
}

std::vector<std::int32_t> OpcUaItems::Remove(const std::vector<std::int32_t>& serverHandles) {
    std::unordered_set<std::int32_t> known;
    for (const auto& item : items_) known.insert(item->ServerHandle());
    std::vector<std::int32_t> errors;
    errors.reserve(serverHandles.size());
    std::unordered_set<std::int32_t> removed;
    for (const std::int32_t handle : serverHandles) {
        const bool isThere = known.contains(handle) && removed.insert(handle).second;
        errors.push_back(isThere ? 0 : InvalidHandle);
    }
    std::erase_if(items_, [&](const auto& item) {
        if (!removed.contains(item->ServerHandle())) return false;
        const auto found = byClient_.find(item->ClientHandle());
        if (found != byClient_.end() && found->second == item) byClient_.erase(found);
        return true;
    });
    forget({removed.begin(), removed.end()});
    return errors;
}

void OpcUaItems::forget(const std::vector<Feed::Key>& keys) {
    if (keys.empty()) return;
    subscription_->feed().forget(keys);
    connection_->post([subscription = subscription_, keys](UA_Client& client, ThreadSide& side) {
        subscription->remove(client, side.limits, keys);
    });
}

}  // namespace velt::opcua
