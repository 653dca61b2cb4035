// SPDX-License-Identifier: MIT
#include "adapters/opcua/runtimeclient.h"

#include "adapters/opcua/endpoint.h"
#include "adapters/opcua/status.h"
#include "adapters/opcua/ua.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <mutex>
#include <optional>
#include <utility>

namespace velt::opcua {
namespace {

constexpr std::int32_t NotRunning = 0;
constexpr std::int32_t NothingConfigured = 1;
/// News that take longer to handle let others have their turn: a runtime may tell without end.
constexpr auto Turn = std::chrono::milliseconds(30);

}  // namespace

/// One session, from its beginning to its end. Shared with its thread.
struct OpcUaRuntimeClient::Attempt {
    std::shared_ptr<Session> session;
    std::shared_ptr<RuntimeNewsQueue> news;
    std::shared_ptr<RuntimeLink> link;
    std::shared_ptr<std::atomic<UA_StatusCode>> verdict;  ///< on the server's certificate

    /// Why there is no session, once it has ended.
    [[nodiscard]] std::string failure() const {
        if (UA_StatusCode_isBad(*verdict)) return describe(*verdict);
        try {
            session->waitUntilActive();  // it has ended: this does not wait
        } catch (const RuntimeError& error) {
            return error.Description();
        }
        return "";
    }

    std::mutex mutex;
    std::vector<std::string> asked;  ///< stations whose states are to be requested
};

void OpcUaRuntimeClient::ConnettiRuntime(const std::string& application,
                                         const std::string& hostname) {
    const std::string endpoint = endpointOf(hostname);
    if (state_ != State::Idle && endpoint == endpoint_) return;
    ChiudiRuntime();
    state_ = State::Linking;
    endpoint_ = endpoint;

    auto attempt = std::make_shared<Attempt>();
    attempt_ = attempt;
    const std::weak_ptr<Attempt> weakAttempt = attempt;
    /// Posts to this object as long as it lives and the attempt is the present one.
    const auto toClient = [mailbox = mailbox_, weak = weak_from_this(), weakAttempt](auto call) {
        mailbox->post([weak, weakAttempt, call] {
            const auto self = weak.lock();
            const auto present = weakAttempt.lock();
            if (self && present && present == self->attempt_) call(*self, present);
        });
    };
    attempt->news = std::make_shared<RuntimeNewsQueue>([toClient] {
        toClient([](OpcUaRuntimeClient& self, const auto& present) { self.deliver(present); });
    });
    const auto link = std::make_shared<RuntimeLink>(attempt->news);
    attempt->link = link;

    const auto end = [toClient](const std::string& reason) {
        toClient([reason](OpcUaRuntimeClient& self, const auto& present) {
            self.ended(present, reason);
        });
    };
    // A session that never stood is not told as lost: it goes with what its thread holds.
    const std::shared_ptr<void> farewell(nullptr, [end](void*) { end(""); });
    SessionEvents events;
    events.active = [link, toClient](UA_Client& client) {
        link->open(client);
        const RuntimeNodes& runtime = link->runtime();
        toClient(
            [project = Project{runtime.versione, runtime.nomeProgetto, runtime.elencoRTU}](
                OpcUaRuntimeClient& self, const auto& present) { self.linked(present, project); });
    };
    events.lost = [end, farewell](const std::string& reason) { end(reason); };
    const ClientSetup setup = clientSetup(options_, endpoint);
    attempt->verdict = setup.verdict;
    attempt->session = Session::open(
        endpoint,
        [configure = setup.configure, application](UA_ClientConfig& config) {
            configure(config);
            UA_String_clear(&config.sessionName);
            config.sessionName = copied(application);
        },
        std::move(events));
}

void OpcUaRuntimeClient::ChiudiRuntime() {
    state_ = State::Idle;
    project_ = {};
    if (const auto attempt = std::exchange(attempt_, nullptr); attempt && attempt->session)
        attempt->session->close();
}

void OpcUaRuntimeClient::requireLink() const {
    if (state_ != State::Linked)
        throw RuntimeError(ErrorNumber::ObjectNotSet, "Nessun collegamento con il runtime");
}

void OpcUaRuntimeClient::RichiediStatoRTU(const std::string& station) {
    requireLink();
    {
        const std::lock_guard lock(attempt_->mutex);
        attempt_->asked.push_back(station);
        if (attempt_->asked.size() > 1) return;  // goes with those that wait already
    }
    attempt_->session->post([attempt = std::weak_ptr(attempt_)](UA_Client& client) {
        const auto present = attempt.lock();
        if (!present) return;
        std::vector<std::string> asked;
        {
            const std::lock_guard lock(present->mutex);
            asked.swap(present->asked);
        }
        present->link->requestStates(client, asked);
    });
}

void OpcUaRuntimeClient::ConnettiRTU(const std::string& station) {
    call(RuntimeMethod::ConnettiRTU, station);
}

void OpcUaRuntimeClient::DisconnettiRTU(const std::string& station) {
    call(RuntimeMethod::DisconnettiRTU, station);
}

void OpcUaRuntimeClient::DownloadRTU(const std::string& station) {
    call(RuntimeMethod::DownloadRTU, station);
}

void OpcUaRuntimeClient::DownloadTutte() { call(RuntimeMethod::DownloadTutte, ""); }

void OpcUaRuntimeClient::call(RuntimeMethod method, const std::string& station) {
    requireLink();
    attempt_->session->post([link = attempt_->link, method, station](UA_Client& client) {
        link->call(client, method, station);
    });
}

void OpcUaRuntimeClient::linked(const std::shared_ptr<Attempt>& attempt, Project project) {
    if (state_ != State::Linking || attempt != attempt_) return;
    const bool hasStation = std::ranges::any_of(
        project.elencoRTU, [](const std::string& name) { return !name.empty(); });
    if (project.nomeProgetto.empty() || !hasStation) {
        ChiudiRuntime();
        ConnectionError.raise(NothingConfigured);
        return;
    }
    project_ = std::move(project);
    state_ = State::Linked;
    logged_.clear();
    // What came in before has waited: a state before Connessione would be of no station yet.
    mailbox_->post([weak = weak_from_this(), attempt] {
        if (const auto self = weak.lock()) self->deliver(attempt);
    });
    Connessione.raise();
}

void OpcUaRuntimeClient::ended(const std::shared_ptr<Attempt>& attempt, const std::string& reason) {
    if (attempt != attempt_) return;
    const bool stood = state_ == State::Linked;
    ChiudiRuntime();
    log(reason.empty() ? attempt->failure() : reason);
    if (stood)
        Disconnessione.raise();
    else
        ConnectionError.raise(NotRunning);
}

void OpcUaRuntimeClient::log(const std::string& reason) {
    // Attempts come every second: the same is not told again.
    const std::string text = endpoint_ + ": " + reason;
    if (options_.log && text != logged_) options_.log(text);
    logged_ = text;
}

void OpcUaRuntimeClient::deliver(const std::shared_ptr<Attempt>& attempt) {
    const auto again = [this, &attempt] {
        mailbox_->post([weak = weak_from_this(), attempt] {
            if (const auto self = weak.lock()) self->deliver(attempt);
        });
    };
    const auto end = std::chrono::steady_clock::now() + Turn;
    try {
        // A handler may close the link, or open another one.
        while (attempt == attempt_ && state_ == State::Linked) {
            if (std::chrono::steady_clock::now() > end) return again();
            const std::optional<RuntimeNews> news = attempt->news->take();
            if (!news) return;
            if (news->kind == RuntimeNews::Kind::Stato)
                Stato.raise(news->station, news->code);
            else
                Errore.raise(news->message, news->station);
        }
    } catch (...) {
        again();  // the handler's error is its own; the other news go on
        throw;
    }
}

}  // namespace velt::opcua
