// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/opcua/clientconfig.h"
#include "adapters/opcua/mailbox.h"
#include "platform/runtimeclient.h"

#include <memory>

namespace velt::opcua {

/// Makes runtime clients over OPC UA. User-interface thread.
class OpcUaRuntimeClientFactory final : public RuntimeClientFactory {
public:
    /// `dispatcher` must outlive this object and its clients.
    explicit OpcUaRuntimeClientFactory(Dispatcher& dispatcher, OpcUaOptions options = {});
    /// Closes the way of events and gives the sessions that still take their leave a second, which
    /// several factories share.
    ~OpcUaRuntimeClientFactory() override;
    OpcUaRuntimeClientFactory(const OpcUaRuntimeClientFactory&) = delete;
    OpcUaRuntimeClientFactory& operator=(const OpcUaRuntimeClientFactory&) = delete;

    [[nodiscard]] std::shared_ptr<RuntimeClient> create() override;

    /// For clients created from now on.
    void options(OpcUaOptions options) { options_ = std::move(options); }

private:
    std::shared_ptr<Mailbox> mailbox_;
    OpcUaOptions options_;
};

}  // namespace velt::opcua
