// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/opcua/directory.h"
#include "adapters/opcua/opcuaitem.h"
#include "adapters/opcua/subscription.h"

#include <deque>
#include <unordered_map>

namespace velt::opcua {

/// The items of a group. Those that were announced are created together. User-interface thread;
/// what is asked of the server waits through the dispatcher, and the rest works without a server.
class OpcUaItems final : public OPCItems {
public:
    OpcUaItems(std::shared_ptr<Connection> connection, std::shared_ptr<Directory> directory,
               std::shared_ptr<Subscription> subscription)
        : connection_(std::move(connection)),
          directory_(std::move(directory)),
          subscription_(std::move(subscription)) {}

    void DefaultIsActive(bool active) override { active_ = active; }
    /// When the server cannot be asked, the AddItem calls that follow fail without asking it again.
    void ExpectItems(const std::vector<std::string>& itemIDs) override;
    void ExpectationsDone() override;
    /// RuntimeError with the server's reason when it refuses the item.
    [[nodiscard]] std::shared_ptr<OPCItem> AddItem(const std::string& itemID,
                                                   std::int32_t clientHandle) override;

    [[nodiscard]] std::int32_t Count() const override;
    [[nodiscard]] std::shared_ptr<OPCItem> Item(std::int32_t index) const override;
    [[nodiscard]] std::shared_ptr<OPCItem> ItemOfClient(std::int32_t clientHandle) const override;
    [[nodiscard]] std::vector<std::int32_t> Remove(
        const std::vector<std::int32_t>& serverHandles) override;

private:
    /// An item that the server monitors already and nobody has asked for yet, or its refusal.
    struct Prepared {
        UA_StatusCode status = UA_STATUSCODE_GOOD;
        NodeId node;
        ValueType type;
        Feed::Key key = 0;
    };
    struct Created {
        std::vector<UA_StatusCode> statuses;
        std::vector<ValueType> types;
    };

    [[nodiscard]] std::vector<Prepared> create(const std::vector<std::string>& itemIDs);
    [[nodiscard]] Created createAtServer(const std::vector<Prepared>& items,
                                         const std::vector<std::size_t>& untyped);
    void forget(const std::vector<Feed::Key>& keys);

    std::shared_ptr<Connection> connection_;
    std::shared_ptr<Directory> directory_;
    std::shared_ptr<Subscription> subscription_;
    bool active_ = true;
    Feed::Key lastKey_ = 0;
    std::unordered_map<std::string, std::deque<Prepared>> expected_;
    std::vector<std::shared_ptr<OpcUaItem>> items_;
    std::unordered_map<std::int32_t, std::shared_ptr<OpcUaItem>> byClient_;
};

}  // namespace velt::opcua
