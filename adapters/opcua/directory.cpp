// SPDX-License-Identifier: MIT
#include "adapters/opcua/directory.h"

#include <open62541/nodeids.h>

#include <algorithm>
#include <utility>

namespace velt::opcua {

const std::vector<Branch>& Directory::roots() {
    fetched_.clear();
    roots_ = branches(NodeId(UA_NODEID_NUMERIC(0, UA_NS0ID_OBJECTSFOLDER)));
    rootsRead_ = true;
    return roots_;
}

const Branch& Directory::root(const std::string& name) {
    if (!rootsRead_) (void)roots();
    const auto found = std::ranges::find(roots_, name, &Branch::name);
    if (found == roots_.end()) throw RuntimeError(ErrorNumber::InvalidCall);
    return *found;
}

std::vector<Branch> Directory::branches(const NodeId& parent) {
    return connection_->wait([parent](UA_Client& client, ThreadSide& side, std::stop_token stop) {
        return readBranches(client, side.limits, parent, stop);
    });
}

void Directory::fetch(const std::vector<std::string>& names) {
    std::vector<Branch> branches;
    for (const std::string& name : names) {
        const auto found = std::ranges::find(roots_, name, &Branch::name);
        if (found != roots_.end()) branches.push_back(*found);
    }
    if (branches.empty()) return;
    std::vector<Leaves> read =
        connection_->wait([branches](UA_Client& client, ThreadSide& side, std::stop_token stop) {
            return readLeaves(client, side.limits, branches, true, stop);
        });
    for (std::size_t i = 0; i < branches.size(); ++i)
        fetched_.insert_or_assign(branches[i].name, std::move(read[i]));
}

std::vector<Leaf> Directory::leaves(const Branch& branch) {
    if (auto node = fetched_.extract(branch.name)) return remember(std::move(node.mapped()));
    return remember(
        connection_->wait([branch](UA_Client& client, ThreadSide& side, std::stop_token stop) {
            return std::move(readLeaves(client, side.limits, {branch}, false, stop).front());
        }));
}

std::vector<Leaf> Directory::remember(Leaves leaves) {
    check(leaves.status);
    if (notice_ && !leaves.leftOut.empty()) notice_(leaves.leftOut);
    for (const Leaf& leaf : leaves.leaves)
        entries_.insert_or_assign(leaf.itemID, Entry{leaf.id, leaf.type});
    return std::move(leaves.leaves);
}

Directory::Entry* Directory::known(const std::string& itemID) {
    const auto found = entries_.find(itemID);
    if (found != entries_.end()) return &found->second;
    NodeId id;
    if (UA_NodeId_parse(id.get(), borrowed(itemID)) != UA_STATUSCODE_GOOD ||
        UA_NodeId_isNull(id.get()))
        return nullptr;
    return &entries_.emplace(itemID, Entry{std::move(id), std::nullopt}).first->second;
}

Directory::Entry* Directory::find(const std::string& itemID) {
    if (Entry* const entry = known(itemID)) return entry;
    if (!rootsRead_) (void)roots();
    for (const Branch& branch : roots_)
        if (itemID.starts_with(branch.name + ".")) (void)leaves(branch);
    return known(itemID);
}

}  // namespace velt::opcua
