// SPDX-License-Identifier: MIT
#include "adapters/opcua/sessionthread.h"

#include "adapters/opcua/endpoint.h"
#include "adapters/opcua/status.h"

#include <open62541/client_config_default.h>
#include <open62541/nodeids.h>

#include <array>
#include <string>
#include <utility>
#include <vector>

namespace velt::opcua {
namespace {

using namespace std::chrono_literals;

constexpr auto ConnectTime = 5s;
constexpr auto PingInterval = 1s;
constexpr auto PingPatience = 4s;     ///< with the interval: five seconds until silence is noticed
constexpr UA_UInt32 TurnTime = 10;    // ms
constexpr UA_UInt32 LeaveTime = 500;  // ms

constexpr UA_UInt32 ServiceTime = 5000;  // ms

/// The library has one code for a name that does not resolve, a host that is down and a server that
/// hangs up.
bool isUnreachable(UA_StatusCode status) {
    return status == UA_STATUSCODE_BADCONNECTIONCLOSED || status == UA_STATUSCODE_BADDISCONNECT ||
           status == UA_STATUSCODE_BADCONNECTIONREJECTED;
}

/// Why there is no session.
void checkConnecting(UA_StatusCode status) {
    if (isUnreachable(status))
        throw RuntimeError(static_cast<int>(status),
                           "Il server non si raggiunge, o rifiuta la connessione");
    check(status);
}

}  // namespace

SessionThread::~SessionThread() {
    if (!client_) return;
    UA_ClientConfig* const config = UA_Client_getConfig(client_.get());
    config->stateCallback = nullptr;
    config->subscriptionInactivityCallback = nullptr;
    config->timeout = LeaveTime;
    // Who does not answer is not asked for a leave that would have to be waited for.
    if (standing_ && !mute_)
        UA_Client_disconnect(client_.get());
    else
        UA_Client_disconnectSecureChannel(client_.get());
}

void SessionThread::connect(const std::string& endpoint,
                            const std::function<void(UA_ClientConfig&)>& configure) {
    const auto deadline = Clock::now() + ConnectTime;
    std::vector<std::string> urls = {endpoint};
    for (std::size_t i = 0; !activated_; ++i) {
        try {
            attempt(urls[i], configure, deadline);
        } catch (const RuntimeError& error) {
            if (!isUnreachable(static_cast<UA_StatusCode>(error.Number()))) throw;
            if (i == 0)
                for (std::string& url : otherAddresses(endpoint)) urls.push_back(std::move(url));
            if (i + 1 == urls.size() || stop_.stop_requested()) throw;
        }
    }
    // From here on the end of the session is the end: the caller decides whether to connect again.
    UA_ClientConfig* const live = UA_Client_getConfig(client_.get());
    live->noReconnect = true;
    live->noNewSession = true;
}

void SessionThread::attempt(const std::string& endpoint,
                            const std::function<void(UA_ClientConfig&)>& configure,
                            Clock::time_point deadline) {
    client_.reset();
    connectStatus_ = UA_STATUSCODE_GOOD;
    UA_ClientConfig config{};
    try {
        configure(config);
    } catch (...) {
        UA_ClientConfig_clear(&config);
        throw;
    }
    config.clientContext = this;
    config.stateCallback = stateChanged;
    // A server that answers but sends no news is lost as well: its old values would look live.
    config.subscriptionInactivityCallback = [](UA_Client* client, UA_UInt32, void*) {
        static_cast<SessionThread*>(UA_Client_getContext(client))->mute_ = true;
    };
    config.timeout = ServiceTime;
    client_.reset(UA_Client_newWithConfig(&config));
    if (!client_) {
        UA_ClientConfig_clear(&config);
        throw std::bad_alloc();
    }
    checkConnecting(UA_Client_connectAsync(client_.get(), endpoint.c_str()));
    while (!activated_) {
        listen();
        checkConnecting(connectStatus_);
        if (stop_.stop_requested()) throw RuntimeError(ErrorNumber::Cancelled);
        if (Clock::now() > deadline) {
            mute_ = true;
            throw statusError(UA_STATUSCODE_BADTIMEOUT);
        }
    }
}

void SessionThread::stateChanged(UA_Client* client, UA_SecureChannelState /*channel*/,
                                 UA_SessionState session, UA_StatusCode connectStatus) {
    auto* const self = static_cast<SessionThread*>(UA_Client_getContext(client));
    self->standing_ = session == UA_SESSIONSTATE_ACTIVATED;
    self->activated_ = self->activated_ || self->standing_;
    if (connectStatus != UA_STATUSCODE_GOOD) self->connectStatus_ = connectStatus;
}

void SessionThread::listen() {
    const UA_StatusCode status = UA_Client_run_iterate(client_.get(), TurnTime);
    if (UA_StatusCode_isBad(status) && connectStatus_ == UA_STATUSCODE_GOOD)
        connectStatus_ = status;
}

void SessionThread::run(const std::function<Commands()>& takeCommands,
                        const std::function<void()>& turn) {
    while (!stop_.stop_requested()) {
        const Commands commands = takeCommands();
        // A server that hangs in the middle of them is noticed no later than otherwise.
        if (!commands.empty()) ping(0s);
        for (const auto& command : commands) {
            try {
                command(*client_);
            } catch (const RuntimeError&) {
                // Who wants to know has asked through call(), which keeps its errors.
            }
        }
        listen();
        if (turn) turn();
        ping(PingInterval);
        if (shuttingDown_) throw statusError(UA_STATUSCODE_BADSHUTDOWN);
        if (mute_) throw statusError(UA_STATUSCODE_BADTIMEOUT);
        if (!standing_) throw statusError(UA_STATUSCODE_BADCONNECTIONCLOSED);
        check(connectStatus_);
    }
}

void SessionThread::ping(Clock::duration interval) {
    const auto now = Clock::now();
    if (pingPending_) {
        if (now - pingTime_ > PingPatience) mute_ = true;
        return;
    }
    if (now - pingTime_ < interval) return;
    std::array<UA_ReadValueId, 2> nodes{};
    nodes[0].nodeId = UA_NODEID_NUMERIC(0, UA_NS0ID_SERVER_SERVERSTATUS_STATE);
    nodes[1].nodeId = UA_NODEID_NUMERIC(0, UA_NS0ID_SERVER_SERVERSTATUS_SECONDSTILLSHUTDOWN);
    for (UA_ReadValueId& node : nodes) node.attributeId = UA_ATTRIBUTEID_VALUE;
    UA_ReadRequest request{};
    request.nodesToRead = nodes.data();
    request.nodesToReadSize = nodes.size();
    pingTime_ = now;
    pingPending_ = __UA_Client_AsyncService(
                       client_.get(), &request, &UA_TYPES[UA_TYPES_READREQUEST], pinged,
                       &UA_TYPES[UA_TYPES_READRESPONSE], this, nullptr) == UA_STATUSCODE_GOOD;
}

void SessionThread::pinged(UA_Client* /*client*/, void* self, UA_UInt32 /*requestId*/,
                           void* response) {
    auto* const thread = static_cast<SessionThread*>(self);
    const auto& read = *static_cast<const UA_ReadResponse*>(response);
    thread->pingPending_ = false;
    if (read.responseHeader.serviceResult == UA_STATUSCODE_BADTIMEOUT) thread->mute_ = true;
    if (read.responseHeader.serviceResult != UA_STATUSCODE_GOOD || read.resultsSize != 2) return;
    const auto number = [](const UA_DataValue& result, auto& into) {
        const UA_Variant& value = result.value;
        if (!result.hasValue || !UA_Variant_isScalar(&value) || !value.type) return;
        if (value.type->typeKind == UA_DATATYPEKIND_UINT32)
            into = *static_cast<const UA_UInt32*>(value.data);
        else if (value.type->typeKind == UA_DATATYPEKIND_INT32 ||
                 value.type->typeKind == UA_DATATYPEKIND_ENUM)
            into = static_cast<UA_UInt32>(*static_cast<const UA_Int32*>(value.data));
    };
    UA_UInt32 state = UA_SERVERSTATE_RUNNING;
    UA_UInt32 seconds = 0;
    number(read.results[0], state);
    number(read.results[1], seconds);
    thread->shuttingDown_ = state == UA_SERVERSTATE_SHUTDOWN || seconds > 0;
}

}  // namespace velt::opcua
