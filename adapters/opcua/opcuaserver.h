// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/opcua/clientconfig.h"
#include "adapters/opcua/opcuagroups.h"

#include <memory>

namespace velt::opcua {

/// A server object over OPC UA. User-interface thread. Connecting, browsing and adding wait through
/// the dispatcher; everything else works on the local state, so also when the server is dead. The
/// connection is never renewed by itself.
class OpcUaServer final : public OPCServer, public std::enable_shared_from_this<OpcUaServer> {
public:
    /// To be held by a shared_ptr. The dispatcher must outlive it.
    OpcUaServer(Dispatcher& dispatcher, std::shared_ptr<Mailbox> mailbox, OpcUaOptions options);
    ~OpcUaServer() override;
    OpcUaServer(const OpcUaServer&) = delete;
    OpcUaServer& operator=(const OpcUaServer&) = delete;

    [[nodiscard]] int ServerState() const override;
    /// The program's name means nothing here; of the node see endpointOf(). RuntimeError with the
    /// reason when there is no session within 5.5 seconds.
    void Connect(const std::string& progID, const std::optional<std::string>& node) override;
    void Disconnect() override;
    [[nodiscard]] velt::OPCGroups& OPCGroups() override { return groups_; }
    [[nodiscard]] std::unique_ptr<OPCBrowser> CreateBrowser() override;
    void ExpectBranches(const std::vector<std::string>& branches) override;

private:
    void lost(int connection, const std::string& reason);

    Dispatcher& dispatcher_;
    std::shared_ptr<Mailbox> mailbox_;
    OpcUaOptions options_;
    OpcUaGroups groups_;
    std::shared_ptr<Connection> connection_;
    std::shared_ptr<Directory> directory_;
    int connections_ = 0;  ///< how many there have been: a late notice is of an old one
};

}  // namespace velt::opcua
