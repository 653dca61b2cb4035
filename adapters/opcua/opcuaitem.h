// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/opcua/connection.h"
#include "adapters/opcua/ua.h"
#include "adapters/opcua/values.h"
#include "platform/opc.h"

namespace velt::opcua {

/// A variable of a group. User-interface thread; writing waits through the dispatcher.
class OpcUaItem final : public OPCItem {
public:
    struct Identity {
        std::string itemID;
        NodeId node;
        ValueType type;
        std::int32_t clientHandle = 0;
        std::int32_t serverHandle = 0;
    };

    OpcUaItem(Identity identity, std::shared_ptr<Connection> connection)
        : identity_(std::move(identity)), connection_(std::move(connection)) {}

    [[nodiscard]] std::int32_t ClientHandle() const override { return identity_.clientHandle; }
    [[nodiscard]] std::int32_t ServerHandle() const override { return identity_.serverHandle; }
    [[nodiscard]] std::string ItemID() const override { return identity_.itemID; }
    [[nodiscard]] int CanonicalDataType() const override { return identity_.type.canonical(); }
    /// In the type that the server expects; RuntimeError when the value does not fit, or with the
    /// server's reason when it refuses.
    void Write(const Variant& value) override;

private:
    Identity identity_;
    std::shared_ptr<Connection> connection_;
};

}  // namespace velt::opcua
