// SPDX-License-Identifier: MIT
// How an OPC viewer connects to its server, and lets go of it.
#include "opcviewer/opcviewer.h"
#include "opcviewer/steps.h"

#include <optional>

namespace velt {
namespace {

constexpr const char* ProgID = "Kordal.OPCServerPVRX";
constexpr const char* GroupName = "Group";
constexpr int UpdateRate = 1000;  // ms

}  // namespace

OPCServer& OPCViewer::server() const {
    if (!ServerOPC_) throw RuntimeError(ErrorNumber::ObjectNotSet);
    return *ServerOPC_;
}

OPCGroup& OPCViewer::group() const {
    if (!GruppoOPC_) throw RuntimeError(ErrorNumber::ObjectNotSet);
    return *GruppoOPC_;
}

void OPCViewer::ConnettiOPC() {
    skipFailure([this] {
        if (ServerOPC_) return;
        ServerOPC_ = services().opcServers().create();
        server().ServerShutDown.subscribe([this](const std::string& reason) {
            handle([&] {
                DisconnettiOPC();
                ConnectionLost.raise(reason);
            });
        });
    });
    bool disconnected = false;
    skipFailure([&] { disconnected = server().ServerState() == opc::Disconnected; });
    if (!disconnected) return;

    // A connection that was lost before its notice came has left its group and rows behind.
    eliminaGruppo();
    // Every step is tried, whatever became of the one before, and none reports: a connection that
    // failed shows in the server's state.
    skipFailure([this] {
        const auto node = Hostname().empty() ? std::nullopt : std::optional(Hostname());
        server().Connect(ProgID, node);
    });
    skipFailure([this] { server().OPCGroups().DefaultGroupIsActive(true); });
    skipFailure([this] { server().OPCGroups().DefaultGroupUpdateRate(UpdateRate); });
    skipFailure([this] {
        GruppoOPC_ = server().OPCGroups().Add(GroupName);
        group().DataChange.subscribe(
            [this](const DataChangeArgs& args) { handle([&] { mostraDati(args); }); });
    });
    skipFailure([this] { group().IsSubscribed(true); });
    skipFailure([this] { group().OPCItems().DefaultIsActive(true); });
}

void OPCViewer::eliminaGruppo() {
    if (!GruppoOPC_) return;
    ignoreErrors([this] { SvuotaVariabili(); });
    GruppoOPC_.reset();
    ignoreErrors([this] { server().OPCGroups().Remove(GroupName); });
}

void OPCViewer::DisconnettiOPC() {
    eliminaGruppo();
    if (ServerOPC_) ignoreErrors([this] { ServerOPC_->Disconnect(); });
}

}  // namespace velt
