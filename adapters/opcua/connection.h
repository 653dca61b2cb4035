// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/opcua/exchange.h"
#include "adapters/opcua/session.h"
#include "adapters/opcua/status.h"
#include "adapters/opcua/subscription.h"
#include "platform/dispatcher.h"

#include <memory>
#include <mutex>
#include <optional>
#include <stop_token>
#include <utility>
#include <vector>

namespace velt::opcua {

/// What the thread of a session knows, beside its UA_Client. Shared by it and the automation
/// objects; the thread keeps it until its client has gone.
struct ThreadSide {
    OperationLimits limits;                                    ///< that thread only
    std::vector<std::shared_ptr<Subscription>> subscriptions;  ///< that thread only
};

/// A session and how the user-interface thread waits for it. User-interface thread.
class Connection {
public:
    Connection(Dispatcher& dispatcher, std::shared_ptr<Session> session,
               std::shared_ptr<ThreadSide> side)
        : dispatcher_(dispatcher), session_(std::move(session)), side_(std::move(side)) {}

    [[nodiscard]] Session& session() { return *session_; }
    [[nodiscard]] bool isActive() const { return session_->state() == Session::State::Active; }

    /// Has the session's thread do `work(client, side, stop)`, which must own what it touches, and
    /// gives its result. RuntimeError when there is no session any more, 3059 when cancelled.
    template <typename Work>
    auto wait(Work work) {
        using Result = std::invoke_result_t<Work&, UA_Client&, ThreadSide&, std::stop_token>;
        if (!isActive()) throw statusError(UA_STATUSCODE_BADCONNECTIONCLOSED);
        auto result = std::make_shared<std::optional<Result>>();
        dispatcher_.run([session = session_, side = side_, work = std::move(work),
                         result](const std::stop_token& stop) {
            *result = session->call(
                [side, work, stop](UA_Client& client) { return work(client, *side, stop); });
        });
        return std::move(**result);
    }

    /// As wait(), but nobody waits, and errors are dropped.
    template <typename Work>
    void post(Work work) {
        session_->post(
            [side = side_, work = std::move(work)](UA_Client& client) { work(client, *side); });
    }

private:
    Dispatcher& dispatcher_;
    std::shared_ptr<Session> session_;
    std::shared_ptr<ThreadSide> side_;
};

}  // namespace velt::opcua
