// SPDX-License-Identifier: MIT
#include "adapters/opcua/session.h"

#include "adapters/opcua/sessionthread.h"
#include "adapters/opcua/status.h"

#include <algorithm>
#include <condition_variable>
#include <mutex>
#include <optional>
#include <thread>
#include <vector>

namespace velt::opcua {
namespace {

using namespace std::chrono_literals;

/// What an error says. Exceptions share their text among copies, which is nothing for two threads.
struct Failure {
    int number = 0;
    std::string description;
};

constexpr auto ConnectPatience = 5500ms;  ///< a little more than the thread gives itself

/// Counts the threads. Never destroyed: threads may end after main().
struct Threads {
    std::mutex mutex;
    std::condition_variable ended;
    int running = 0;
    int givenUp = 0;  ///< of these, as giveTimeToLeave() has found

    void began() {
        const std::lock_guard lock(mutex);
        ++running;
    }
    void hasEnded() {
        const std::lock_guard lock(mutex);
        --running;
        givenUp = std::min(givenUp, running);
        ended.notify_all();
    }

    static Threads& all() {
        static auto* const threads = new Threads;
        return *threads;
    }
};

}  // namespace

/// Shared by the session and its thread, which may outlive it.
struct Session::Core {
    mutable std::mutex mutex;
    std::condition_variable_any changed;
    State state = State::Connecting;
    std::optional<Failure> failure;  ///< why it does not stand any more
    std::vector<std::function<void(UA_Client&)>> commands;
    std::stop_source stop;

    [[nodiscard]] bool stood() const {
        const std::lock_guard lock(mutex);
        return state == State::Active;
    }

    void become(State next) {
        const std::lock_guard lock(mutex);
        state = next;
        changed.notify_all();
    }

    /// The commands that wait; what is left at the end is dropped, so that who waits is told.
    std::vector<std::function<void(UA_Client&)>> takeCommands() {
        const std::lock_guard lock(mutex);
        return std::exchange(commands, {});
    }

    void end(std::optional<Failure> reason) {
        std::vector<std::function<void(UA_Client&)>> dropped;
        const std::lock_guard lock(mutex);
        failure = std::move(reason);
        state = State::Ended;
        dropped.swap(commands);
        changed.notify_all();
    }
};

std::shared_ptr<Session> Session::open(std::string endpoint,
                                       std::function<void(UA_ClientConfig&)> configure,
                                       SessionEvents events) {
    auto core = std::make_shared<Core>();
    Threads::all().began();
    std::thread([core, endpoint = std::move(endpoint), configure = std::move(configure),
                 events = std::move(events)]() mutable {
        {
            SessionThread thread(core->stop.get_token());
            std::optional<Failure> failure;
            try {
                thread.connect(endpoint, configure);
                if (events.active) events.active(thread.client());
                core->become(State::Active);
                thread.run([&core] { return core->takeCommands(); }, events.turn);
            } catch (const RuntimeError& error) {
                failure = Failure{error.Number(), error.Description()};
            } catch (const std::bad_alloc&) {
                failure = Failure{static_cast<int>(ErrorNumber::Overflow), "Memoria insufficiente"};
            } catch (const std::exception& error) {
                failure = Failure{0, error.what()};  // whatever it is, it must not end the program
            }
            const bool stood = core->stood();
            core->end(failure);
            if (stood && failure && !core->stop.stop_requested() && events.lost)
                events.lost(failure->description);
        }
        // Only now: values may come in until the client is gone.
        events = {};
        core.reset();
        Threads::all().hasEnded();
    }).detach();
    return std::shared_ptr<Session>(new Session(std::move(core)));
}

Session::~Session() { close(); }

Session::State Session::state() const {
    const std::lock_guard lock(core_->mutex);
    return core_->state;
}

void Session::waitUntilActive(const std::stop_token& stop) {
    std::unique_lock lock(core_->mutex);
    const bool decided = core_->changed.wait_for(
        lock, stop, ConnectPatience, [this] { return core_->state != State::Connecting; });
    if (core_->state == State::Active) return;
    const std::optional<Failure> failure = core_->failure;
    lock.unlock();
    close();
    if (failure) throw RuntimeError(failure->number, failure->description);
    if (!decided && stop.stop_requested()) throw RuntimeError(ErrorNumber::Cancelled);
    throw statusError(UA_STATUSCODE_BADTIMEOUT);
}

void Session::post(std::function<void(UA_Client&)> command) {
    const std::lock_guard lock(core_->mutex);
    if (core_->state != State::Ended && !core_->stop.stop_requested())
        core_->commands.push_back(std::move(command));
}

void Session::close() { core_->stop.request_stop(); }

bool Session::waitForAll(std::chrono::milliseconds time) {
    Threads& threads = Threads::all();
    std::unique_lock lock(threads.mutex);
    return threads.ended.wait_for(lock, time, [&threads] { return threads.running == 0; });
}

bool Session::giveTimeToLeave(std::chrono::milliseconds time) {
    Threads& threads = Threads::all();
    std::unique_lock lock(threads.mutex);
    const bool left = threads.ended.wait_for(
        lock, time, [&threads] { return threads.running <= threads.givenUp; });
    threads.givenUp = threads.running;
    return left;
}

RuntimeError Session::ended() { return statusError(UA_STATUSCODE_BADCONNECTIONCLOSED); }

}  // namespace velt::opcua
