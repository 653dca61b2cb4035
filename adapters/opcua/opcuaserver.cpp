// SPDX-License-Identifier: MIT
#include "adapters/opcua/opcuaserver.h"

#include "adapters/opcua/endpoint.h"
#include "adapters/opcua/opcuabrowser.h"
#include "adapters/opcua/status.h"

namespace velt::opcua {

OpcUaServer::OpcUaServer(Dispatcher& dispatcher, std::shared_ptr<Mailbox> mailbox,
                         OpcUaOptions options)
    : dispatcher_(dispatcher),
      mailbox_(std::move(mailbox)),
      options_(std::move(options)),
      groups_(mailbox_) {}

OpcUaServer::~OpcUaServer() { Disconnect(); }

int OpcUaServer::ServerState() const {
    return connection_ && connection_->isActive() ? opc::Running : opc::Disconnected;
}

void OpcUaServer::Connect(const std::string& /*progID*/, const std::optional<std::string>& node) {
    if (ServerState() == opc::Running) throw RuntimeError(ErrorNumber::InvalidCall);
    Disconnect();
    const int number = ++connections_;
    const std::string endpoint = endpointOf(node);
    const auto side = std::make_shared<ThreadSide>();
    SessionEvents events;
    events.active = [side](UA_Client& client) { side->limits = readLimits(client); };
    events.turn = [side] {
        for (const auto& subscription : side->subscriptions) subscription->feed().flush();
    };
    events.lost = [mailbox = mailbox_, weak = weak_from_this(), number](const std::string& reason) {
        mailbox->post([weak, number, reason] {
            if (const auto alive = weak.lock()) alive->lost(number, reason);
        });
    };
    const ClientSetup setup = clientSetup(options_, endpoint);
    const auto session = Session::open(endpoint, setup.configure, std::move(events));
    try {
        dispatcher_.run([session](const std::stop_token& stop) { session->waitUntilActive(stop); });
    } catch (const RuntimeError& error) {
        session->close();
        if (error.is(ErrorNumber::Cancelled)) throw;
        // A refused certificate tells more than the end of the connection that follows from it.
        const UA_StatusCode verdict = *setup.verdict;
        const RuntimeError reason = UA_StatusCode_isBad(verdict) ? statusError(verdict) : error;
        if (options_.log) options_.log(endpoint + ": " + reason.Description());
        throw RuntimeError(reason);
    }
    connection_ = std::make_shared<Connection>(dispatcher_, session, side);
    directory_ = std::make_shared<Directory>(connection_, options_.notice);
    groups_.connection(connection_, directory_);
}

void OpcUaServer::Disconnect() {
    groups_.connection(nullptr, nullptr);
    directory_.reset();
    if (connection_) connection_->session().close();
    connection_.reset();
}

std::unique_ptr<OPCBrowser> OpcUaServer::CreateBrowser() {
    if (!directory_) throw statusError(UA_STATUSCODE_BADNOTCONNECTED);
    return std::make_unique<OpcUaBrowser>(directory_);
}

void OpcUaServer::ExpectBranches(const std::vector<std::string>& branches) {
    if (!directory_) throw statusError(UA_STATUSCODE_BADNOTCONNECTED);
    directory_->fetch(branches);
}

void OpcUaServer::lost(int connection, const std::string& reason) {
    if (connection != connections_ || !connection_) return;
    if (options_.log) options_.log(reason);
    ServerShutDown.raise(reason);
}

}  // namespace velt::opcua
