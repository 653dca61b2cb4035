// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/opcua/clientconfig.h"
#include "adapters/opcua/mailbox.h"
#include "platform/opc.h"

#include <memory>

namespace velt::opcua {

/// Makes server objects over OPC UA. User-interface thread.
class OpcUaServerFactory final : public OPCServerFactory {
public:
    /// `dispatcher` must outlive this object and its servers.
    explicit OpcUaServerFactory(Dispatcher& dispatcher, OpcUaOptions options = {});
    /// Closes the way of events and gives the sessions that still take their leave a second, which
    /// several factories share.
    ~OpcUaServerFactory() override;
    OpcUaServerFactory(const OpcUaServerFactory&) = delete;
    OpcUaServerFactory& operator=(const OpcUaServerFactory&) = delete;

    [[nodiscard]] std::shared_ptr<OPCServer> create() override;

    /// For the connections that are made from now on by servers created from now on.
    void options(OpcUaOptions options) { options_ = std::move(options); }

private:
    Dispatcher& dispatcher_;
    std::shared_ptr<Mailbox> mailbox_;
    OpcUaOptions options_;
};

}  // namespace velt::opcua
