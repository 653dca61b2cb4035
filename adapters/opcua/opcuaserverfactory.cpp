// SPDX-License-Identifier: MIT
#include "adapters/opcua/opcuaserverfactory.h"

#include "adapters/opcua/opcuaserver.h"

namespace velt::opcua {

OpcUaServerFactory::OpcUaServerFactory(Dispatcher& dispatcher, OpcUaOptions options)
    : dispatcher_(dispatcher),
      mailbox_(std::make_shared<Mailbox>(dispatcher)),
      options_(std::move(options)) {}

OpcUaServerFactory::~OpcUaServerFactory() {
    mailbox_->close();
    (void)Session::giveTimeToLeave(std::chrono::seconds(1));
}

std::shared_ptr<OPCServer> OpcUaServerFactory::create() {
    return std::make_shared<OpcUaServer>(dispatcher_, mailbox_, options_);
}

}  // namespace velt::opcua
