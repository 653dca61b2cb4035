// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/opcua/clientconfig.h"
#include "adapters/opcua/mailbox.h"
#include "adapters/opcua/runtimelink.h"
#include "adapters/opcua/session.h"
#include "platform/runtimeclient.h"

#include <memory>
#include <string>
#include <vector>

namespace velt::opcua {

/// The link to a runtime that is an object of an OPC UA server. User-interface thread; no member
/// waits for the server. Its events come through the mailbox, never inside a handler.
class OpcUaRuntimeClient final : public RuntimeClient,
                                 public std::enable_shared_from_this<OpcUaRuntimeClient> {
public:
    OpcUaRuntimeClient(std::shared_ptr<Mailbox> mailbox, OpcUaOptions options)
        : mailbox_(std::move(mailbox)), options_(std::move(options)) {}
    ~OpcUaRuntimeClient() override { ChiudiRuntime(); }

    /// The host is a name or an address, an opc.tcp:// URL, or "" for this machine. A link to
    /// another host is closed without an event.
    void ConnettiRuntime(const std::string& application, const std::string& hostname) override;
    void ChiudiRuntime() override;
    void RichiediStatoRTU(const std::string& station) override;
    void ConnettiRTU(const std::string& station) override;
    void DisconnettiRTU(const std::string& station) override;
    void DownloadRTU(const std::string& station) override;
    void DownloadTutte() override;

    // Empty without a link.
    [[nodiscard]] std::vector<std::string> ElencoRTU() const override { return project_.elencoRTU; }
    [[nodiscard]] bool RuntimeAttivo() const override { return state_ == State::Linked; }
    [[nodiscard]] std::string Versione() const override { return project_.versione; }
    [[nodiscard]] std::string NomeProgetto() const override { return project_.nomeProgetto; }

private:
    enum class State { Idle, Linking, Linked };
    struct Project {
        std::string versione;
        std::string nomeProgetto;
        std::vector<std::string> elencoRTU;
    };
    struct Attempt;

    void requireLink() const;
    void call(RuntimeMethod method, const std::string& station);
    // What the thread of a session tells; ignored from one that is not the present one.
    void linked(const std::shared_ptr<Attempt>& attempt, Project project);
    void ended(const std::shared_ptr<Attempt>& attempt, const std::string& reason);
    void deliver(const std::shared_ptr<Attempt>& attempt);

    void log(const std::string& reason);

    std::shared_ptr<Mailbox> mailbox_;
    OpcUaOptions options_;
    State state_ = State::Idle;
    std::string endpoint_;
    Project project_;
    std::string logged_;                ///< last
    std::shared_ptr<Attempt> attempt_;  ///< the present one
};

}  // namespace velt::opcua
