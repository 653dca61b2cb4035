// SPDX-License-Identifier: MIT
#pragma once

#include <open62541/client.h>

#include <cstddef>
#include <functional>
#include <stop_token>

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

/// Requests in which operations [first, first + size) of all are asked for.
struct Slice {
    std::size_t first;
    std::size_t size;
};
[[nodiscard]] std::size_t sliceCount(std::size_t operations, std::size_t limit);
[[nodiscard]] Slice slice(std::size_t number, std::size_t operations, std::size_t limit);

}  // namespace velt::opcua
