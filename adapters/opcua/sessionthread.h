// SPDX-License-Identifier: MIT
#pragma once

#include <open62541/client.h>

#include <chrono>
#include <functional>
#include <memory>
#include <stop_token>
#include <string>
#include <vector>

namespace velt::opcua {

/// What the thread of a session does with its UA_Client. All on that thread.
class SessionThread {
public:
    using Clock = std::chrono::steady_clock;
    using Commands = std::vector<std::function<void(UA_Client&)>>;

    explicit SessionThread(std::stop_token stop) : stop_(std::move(stop)) {}
    /// Takes leave of the server when the session still stands, in half a second at most.
    ~SessionThread();
    SessionThread(const SessionThread&) = delete;
    SessionThread& operator=(const SessionThread&) = delete;

    /// RuntimeError when there is no session within five seconds, or stop is requested.
    void connect(const std::string& endpoint,
                 const std::function<void(UA_ClientConfig&)>& configure);
    [[nodiscard]] UA_Client& client() { return *client_; }

    /// Carries out commands and listens until stop is requested; RuntimeError with the reason when
    /// the session ends otherwise.
    void run(const std::function<Commands()>& takeCommands, const std::function<void()>& turn);

private:
    struct Deleter {
        void operator()(UA_Client* client) const { UA_Client_delete(client); }
    };

    void attempt(const std::string& endpoint,
                 const std::function<void(UA_ClientConfig&)>& configure,
                 Clock::time_point deadline);
    static void stateChanged(UA_Client* client, UA_SecureChannelState channel,
                             UA_SessionState session, UA_StatusCode connectStatus);
    static void pinged(UA_Client* client, void* self, UA_UInt32 requestId, void* response);
    void listen();
    /// Asks the server for its state unless that was done within `interval` or has not been
    /// answered; this is also how its silence is noticed.
    void ping(Clock::duration interval);

    std::stop_token stop_;
    std::unique_ptr<UA_Client, Deleter> client_;
    UA_StatusCode connectStatus_ = UA_STATUSCODE_GOOD;
    bool activated_ = false;     ///< has been, once
    bool standing_ = false;      ///< is, as far as is known
    bool shuttingDown_ = false;  ///< the server has said so
    bool mute_ = false;
    bool pingPending_ = false;
    Clock::time_point pingTime_{};  ///< of the last one sent
};

}  // namespace velt::opcua
