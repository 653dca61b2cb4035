// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/opcua/mailbox.h"
#include "adapters/opcua/opcuaitems.h"

#include <memory>
#include <string>

namespace velt::opcua {

/// A group: a subscription of the server, made with the first item. User-interface thread.
class OpcUaGroup final : public OPCGroup, public std::enable_shared_from_this<OpcUaGroup> {
public:
    /// `rate` in milliseconds: how often the server sends what has changed.
    [[nodiscard]] static std::shared_ptr<OpcUaGroup> create(std::shared_ptr<Connection> connection,
                                                            std::shared_ptr<Directory> directory,
                                                            const std::shared_ptr<Mailbox>& mailbox,
                                                            bool active, int rate);
    ~OpcUaGroup() override { end(); }
    OpcUaGroup(const OpcUaGroup&) = delete;
    OpcUaGroup& operator=(const OpcUaGroup&) = delete;

    void IsSubscribed(bool subscribed) override;
    [[nodiscard]] velt::OPCItems& OPCItems() override { return *items_; }

    /// Nothing comes any more; the server is told.
    void end();

private:
    OpcUaGroup() = default;
    void deliver();

    std::shared_ptr<Connection> connection_;
    std::shared_ptr<Feed> feed_;
    std::shared_ptr<Subscription> subscription_;
    std::unique_ptr<OpcUaItems> items_;
    bool active_ = true;
    bool subscribed_ = false;
    bool ended_ = false;
};

}  // namespace velt::opcua
