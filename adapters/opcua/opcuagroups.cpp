// SPDX-License-Identifier: MIT
#include "adapters/opcua/opcuagroups.h"

#include "adapters/opcua/status.h"

namespace velt::opcua {

void OpcUaGroups::DefaultGroupUpdateRate(int rate) {
    if (rate < 0) throw RuntimeError(ErrorNumber::InvalidCall);
    rate_ = rate;
}

std::shared_ptr<OPCGroup> OpcUaGroups::Add(const std::string& name) {
    if (!connection_ || !connection_->isActive()) throw statusError(UA_STATUSCODE_BADNOTCONNECTED);
    if (groups_.contains(name)) throw RuntimeError(ErrorNumber::KeyInUse);
    auto group = OpcUaGroup::create(connection_, directory_, mailbox_, active_, rate_);
    groups_.emplace(name, group);
    return group;
}

void OpcUaGroups::Remove(const std::string& name) {
    const auto found = groups_.find(name);
    if (found == groups_.end()) throw RuntimeError(ErrorNumber::InvalidCall);
    found->second->end();
    groups_.erase(found);
}

void OpcUaGroups::connection(std::shared_ptr<Connection> connection,
                             std::shared_ptr<Directory> directory) {
    for (const auto& [name, group] : groups_) group->end();
    groups_.clear();
    connection_ = std::move(connection);
    directory_ = std::move(directory);
}

}  // namespace velt::opcua
