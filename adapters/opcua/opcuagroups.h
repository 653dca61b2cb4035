// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/opcua/opcuagroup.h"

#include <map>

namespace velt::opcua {

/// The groups of one server object. User-interface thread.
class OpcUaGroups final : public OPCGroups {
public:
    explicit OpcUaGroups(std::shared_ptr<Mailbox> mailbox) : mailbox_(std::move(mailbox)) {}

    void DefaultGroupIsActive(bool active) override { active_ = active; }
    void DefaultGroupUpdateRate(int rate) override;
    [[nodiscard]] std::shared_ptr<OPCGroup> Add(const std::string& name) override;
    void Remove(const std::string& name) override;

    /// The connection of the groups that are added from now on; null: none can be added. The
    /// present groups end.
    void connection(std::shared_ptr<Connection> connection, std::shared_ptr<Directory> directory);

private:
    std::shared_ptr<Mailbox> mailbox_;
    std::shared_ptr<Connection> connection_;
    std::shared_ptr<Directory> directory_;
    bool active_ = true;
    int rate_ = 1000;
    std::map<std::string, std::shared_ptr<OpcUaGroup>> groups_;
};

}  // namespace velt::opcua
