// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/opcua/status.h"

#include <open62541/client.h>

#include <cstddef>
#include <functional>
#include <stop_token>
#include <vector>

namespace velt::opcua {

/// How many operations a server takes in one request; requests are split accordingly.
struct OperationLimits {
    std::size_t read = 10'000;
    std::size_t browse = 5'000;
    std::size_t monitor = 5'000;
};

/// What the server states, with the defaults as the most. On the session's thread.
[[nodiscard]] OperationLimits readLimits(UA_Client& client);

/// Sends the request with that number, to be answered through `callback`.
using Send = std::function<UA_StatusCode(std::size_t number, UA_ClientAsyncServiceCallback callback,
                                         void* context)>;
/// Takes the response to that request; its service result has been checked.
using Take = std::function<void(std::size_t number, void* response)>;

/// Sends `count` requests, several under way at a time so that a slow line costs few round trips,
/// and hands on the responses. On the session's thread, outside of the library's callbacks.
/// RuntimeError with the first service result that is bad, after five seconds without any response,
/// 3059 when `stop` is requested.
void exchange(UA_Client& client, std::size_t count, const Send& send, const Take& take,
              const std::stop_token& stop = {});

/// The operations [first, first + size) of all, which go into one request.
struct Slice {
    std::size_t first;
    std::size_t size;
};
[[nodiscard]] std::size_t sliceCount(std::size_t operations, std::size_t limit);
[[nodiscard]] Slice slice(std::size_t number, std::size_t operations, std::size_t limit);

/// A service of a server, by the numbers (UA_TYPES_...) of its messages.
template <typename RequestMessage, std::size_t RequestType, typename ResponseMessage,
          std::size_t ResponseType>
struct Service {
    using Request = RequestMessage;
    using Response = ResponseMessage;
    static const UA_DataType* request() { return &UA_TYPES[RequestType]; }
    static const UA_DataType* response() { return &UA_TYPES[ResponseType]; }
};

/// As exchange(), with `operations` operations in requests of at most `limit`: `ask(slice,
/// request)` puts operations into a request, `take(slice, response)` gets their response.
template <typename Service, typename Ask, typename TakeSlice>
void exchangeSlices(UA_Client& client, std::size_t operations, std::size_t limit, const Ask& ask,
                    const TakeSlice& take, const std::stop_token& stop) {
    exchange(
        client, sliceCount(operations, limit),
        [&](std::size_t number, UA_ClientAsyncServiceCallback callback, void* context) {
            typename Service::Request request{};
            ask(slice(number, operations, limit), request);
            return __UA_Client_AsyncService(&client, &request, Service::request(), callback,
                                            Service::response(), context, nullptr);
        },
        [&](std::size_t number, void* response) {
            take(slice(number, operations, limit),
                 *static_cast<const typename Service::Response*>(response));
        },
        stop);
}

/// Hands on the results of a response, each with the number of its operation. RuntimeError when
/// there are not as many as operations.
template <typename Response, typename TakeResult>
void eachResult(const Slice& part, const Response& response, const TakeResult& take) {
    if (response.resultsSize != part.size) throw statusError(UA_STATUSCODE_BADUNKNOWNRESPONSE);
    for (std::size_t i = 0; i < part.size; ++i) take(part.first + i, response.results[i]);
}

/// Reads attributes; `take` gets each result and the number of its attribute in `ids`.
void readAttributes(UA_Client& client, const OperationLimits& limits,
                    std::vector<UA_ReadValueId>& ids,
                    const std::function<void(std::size_t, const UA_DataValue&)>& take,
                    const std::stop_token& stop = {});
/// The request for one attribute; points to `node`.
[[nodiscard]] UA_ReadValueId attributeOf(const UA_NodeId& node, UA_AttributeId attribute);

}  // namespace velt::opcua
