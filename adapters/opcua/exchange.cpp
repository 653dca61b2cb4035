// SPDX-License-Identifier: MIT
#include "adapters/opcua/exchange.h"

#include "adapters/opcua/status.h"
#include "adapters/opcua/ua.h"

#include <open62541/nodeids.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <exception>
#include <memory>

namespace velt::opcua {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

constexpr std::size_t UnderWay = 4;
constexpr auto Patience = 5s;
constexpr UA_UInt32 TurnTime = 10;  // ms

/// What the responses find. It outlives an exchange that gave up.
struct State {
    const Take* take = nullptr;  ///< null: nobody waits any more
    std::size_t sent = 0;
    std::size_t answered = 0;
    std::exception_ptr error;
};

struct Flight {
    std::shared_ptr<State> state;
    std::size_t number;
};

void answered(UA_Client* /*client*/, void* context, UA_UInt32 /*requestId*/, void* response) {
    const std::unique_ptr<Flight> flight(static_cast<Flight*>(context));
    State& state = *flight->state;
    ++state.answered;
    if (!state.take || state.error) return;
    try {
        check(static_cast<const UA_ResponseHeader*>(response)->serviceResult);
        (*state.take)(flight->number, response);
    } catch (...) {
        state.error = std::current_exception();  // must not go through the library
    }
}

}  // namespace

void exchange(UA_Client& client, std::size_t count, const Send& send, const Take& take,
              const std::stop_token& stop) {
    const auto state = std::make_shared<State>();
    state->take = &take;
    const std::shared_ptr<void> leave(nullptr, [&state](void*) { state->take = nullptr; });
    auto deadline = Clock::now() + Patience;
    while (state->answered < count) {
        while (state->sent < count && state->sent - state->answered < UnderWay) {
            auto flight = std::make_unique<Flight>(Flight{state, state->sent});
            check(send(state->sent, answered, flight.get()));
            (void)flight.release();  // answered() gets it in any case
            ++state->sent;
        }
        const std::size_t before = state->answered;
        check(UA_Client_run_iterate(&client, TurnTime));
        if (state->error) std::rethrow_exception(state->error);
        if (stop.stop_requested()) throw RuntimeError(ErrorNumber::Cancelled);
        if (state->answered != before)
            deadline = Clock::now() + Patience;
        else if (Clock::now() > deadline)
            throw statusError(UA_STATUSCODE_BADTIMEOUT);
    }
}

std::size_t sliceCount(std::size_t operations, std::size_t limit) {
    return (operations + limit - 1) / limit;
}

Slice slice(std::size_t number, std::size_t operations, std::size_t limit) {
    return {number * limit, std::min(limit, operations - number * limit)};
}

void readAttributes(UA_Client& client, const OperationLimits& limits,
                    std::vector<UA_ReadValueId>& ids,
                    const std::function<void(std::size_t, const UA_DataValue&)>& take,
                    const std::stop_token& stop) {
    using Read =
        Service<UA_ReadRequest, UA_TYPES_READREQUEST, UA_ReadResponse, UA_TYPES_READRESPONSE>;
    exchangeSlices<Read>(
        client, ids.size(), limits.read,
        [&ids](const Slice& part, UA_ReadRequest& request) {
            request.nodesToRead = ids.data() + part.first;
            request.nodesToReadSize = part.size;
            request.timestampsToReturn = UA_TIMESTAMPSTORETURN_SERVER;
        },
        [&take](const Slice& part, const UA_ReadResponse& response) {
            eachResult(part, response, take);
        },
        stop);
}

UA_ReadValueId attributeOf(const UA_NodeId& node, UA_AttributeId attribute) {
    UA_ReadValueId result{};
    result.nodeId = node;
    result.attributeId = static_cast<UA_UInt32>(attribute);
    return result;
}

OperationLimits readLimits(UA_Client& client) {
    OperationLimits limits;
    const std::array<std::pair<UA_UInt32, std::size_t*>, 3> wanted = {{
        {UA_NS0ID_SERVER_SERVERCAPABILITIES_OPERATIONLIMITS_MAXNODESPERREAD, &limits.read},
        {UA_NS0ID_SERVER_SERVERCAPABILITIES_OPERATIONLIMITS_MAXNODESPERBROWSE, &limits.browse},
        {UA_NS0ID_SERVER_SERVERCAPABILITIES_OPERATIONLIMITS_MAXMONITOREDITEMSPERCALL,
         &limits.monitor},
    }};
    std::array<UA_ReadValueId, 3> nodes{};
    for (std::size_t i = 0; i < wanted.size(); ++i)
        nodes[i] = attributeOf(UA_NODEID_NUMERIC(0, wanted[i].first), UA_ATTRIBUTEID_VALUE);
    UA_ReadRequest request{};
    request.nodesToRead = nodes.data();
    request.nodesToReadSize = nodes.size();
    const Owned<UA_ReadResponse, UA_TYPES_READRESPONSE> response(
        UA_Client_Service_read(&client, request));
    // A server that states no limits, or has no such nodes, gets requests of our own size.
    for (std::size_t i = 0; i < std::min(wanted.size(), response->resultsSize); ++i) {
        const UA_Variant& value = response->results[i].value;
        if (!UA_Variant_hasScalarType(&value, &UA_TYPES[UA_TYPES_UINT32])) continue;
        const UA_UInt32 limit = *static_cast<const UA_UInt32*>(value.data);
        if (limit > 0) *wanted[i].second = std::min<std::size_t>(*wanted[i].second, limit);
    }
    return limits;
}

}  // namespace velt::opcua
