// SPDX-License-Identifier: MIT
#include "adapters/opcua/runtimeclientfactory.h"

#include "adapters/opcua/runtimeclient.h"

#include <chrono>
#include <utility>

namespace velt::opcua {

OpcUaRuntimeClientFactory::OpcUaRuntimeClientFactory(Dispatcher& dispatcher, OpcUaOptions options)
    : mailbox_(std::make_shared<Mailbox>(dispatcher)), options_(std::move(options)) {}

OpcUaRuntimeClientFactory::~OpcUaRuntimeClientFactory() {
    mailbox_->close();
    (void)Session::giveTimeToLeave(std::chrono::seconds(1));
}

std::shared_ptr<RuntimeClient> OpcUaRuntimeClientFactory::create() {
    return std::make_shared<OpcUaRuntimeClient>(mailbox_, options_);
}

}  // namespace velt::opcua
