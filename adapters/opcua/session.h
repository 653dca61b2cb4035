// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtimeerror.h"

#include <open62541/client.h>

#include <atomic>
#include <chrono>
#include <functional>
#include <future>
#include <memory>
#include <stop_token>
#include <string>
#include <type_traits>
#include <utility>

namespace velt::opcua {

/// What a session tells; called on its thread, one at a time. What they capture must outlive the
/// session's thread, so it must be shared.
struct SessionEvents {
    /// The session stands; may call services. An error that it raises ends the attempt.
    std::function<void(UA_Client&)> active;
    /// After every turn of the thread, several times a second.
    std::function<void()> turn;
    /// Once, when a session that stood has ended without close(): the server is shutting down, has
    /// gone, or is mute. The argument is the reason, for an operator.
    std::function<void(const std::string&)> lost;
};

/// One connection to one server, with a thread of its own: only that thread touches the
/// UA_Client, which fails when it is used from several. A session is never renewed: after its end
/// a new one is opened.
///
/// The thread may hang in name resolution, beyond anybody's power; nobody waits for it, it ends by
/// itself. A server that says nothing is noticed within five seconds.
class Session {
public:
    enum class State { Connecting, Active, Ended };

    /// Starts connecting and returns at once. `configure` gets a zeroed configuration and fills
    /// it, on the session's thread; an error that it raises is the attempt's.
    [[nodiscard]] static std::shared_ptr<Session> open(
        std::string endpoint, std::function<void(UA_ClientConfig&)> configure,
        SessionEvents events);
    /// As close().
    ~Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    /// As last seen by the thread; never waits.
    [[nodiscard]] State state() const;

    /// Waits until the session stands. RuntimeError with the reason when it does not within 5.5
    /// seconds, 3059 when `stop` is requested; both end it.
    void waitUntilActive(const std::stop_token& stop = {});

    /// Has the thread carry out `command`, which may call services (but not wait for another
    /// command); what it raises is dropped. After the end of the session it is not carried out.
    void post(std::function<void(UA_Client&)> command);

    /// As post(), waits, and gives what `work` gives or raises. RuntimeError when the session
    /// ends before.
    template <typename Work>
    auto call(Work work) {
        using Result = std::invoke_result_t<Work&, UA_Client&>;
        auto task = std::make_shared<std::packaged_task<Result(UA_Client&)>>(std::move(work));
        std::future<Result> result = task->get_future();
        post([task = std::move(task)](UA_Client& client) { (*task)(client); });
        try {
            return result.get();
        } catch (const std::future_error&) {
            throw ended();
        }
    }

    /// Takes leave of the server, in the background. Nothing is told any more, unless it is being
    /// told at this moment.
    void close();

    /// Waits for the threads of all sessions of the process that have been closed; false when
    /// some still run at the end of the time.
    static bool waitForAll(std::chrono::milliseconds time);
    /// The same for those who end one after the other: threads for which one of them has waited in
    /// vain are left to themselves by the others.
    static bool giveTimeToLeave(std::chrono::milliseconds time);

private:
    struct Core;
    explicit Session(std::shared_ptr<Core> core) : core_(std::move(core)) {}
    [[nodiscard]] static RuntimeError ended();

    std::shared_ptr<Core> core_;
};

}  // namespace velt::opcua
