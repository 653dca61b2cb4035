// SPDX-License-Identifier: MIT
#include "adapters/opcua/opcuaitem.h"

#include "adapters/opcua/status.h"

#include <atomic>

namespace velt::opcua {
namespace {

/// The request may have reached the server, and no answer came: it may yet happen.
bool isOutcomeUnknown(UA_StatusCode status) {
    switch (status) {
        case UA_STATUSCODE_BADTIMEOUT:
        case UA_STATUSCODE_BADCONNECTIONCLOSED:
        case UA_STATUSCODE_BADSECURECHANNELCLOSED:
        case UA_STATUSCODE_BADDISCONNECT: return true;
        default: return false;
    }
}

RuntimeError unknownOutcome(UA_StatusCode status, const std::string& reason) {
    return {static_cast<int>(status), reason + ": l'esito della scrittura è sconosciuto"};
}

}  // namespace

void OpcUaItem::Write(const Variant& value) {
    const auto converted = std::make_shared<OwnedVariant>(toUa(value, identity_.type));
    const auto sent = std::make_shared<std::atomic<bool>>(false);
    UA_StatusCode status = UA_STATUSCODE_GOOD;
    try {
        status =
            connection_->wait([node = identity_.node, converted, sent](
                                  UA_Client& client, ThreadSide&, const std::stop_token& stop) {
                // Before the look at the token: who cancels right after it must not be told that
                // nothing was written.
                *sent = true;
                // Cancelled while it waited for its turn: it must not happen later on.
                if (stop.stop_requested()) {
                    *sent = false;
                    return UA_STATUSCODE_BADREQUESTCANCELLEDBYCLIENT;
                }
                // The value alone: many servers refuse a status or time stamps from a client.
                UA_WriteValue write{};
                write.nodeId = *node;
                write.attributeId = UA_ATTRIBUTEID_VALUE;
                write.value.hasValue = true;
                write.value.value = **converted;
                UA_WriteRequest request{};
                request.nodesToWrite = &write;
                request.nodesToWriteSize = 1;
                const Owned<UA_WriteResponse, UA_TYPES_WRITERESPONSE> response(
                    UA_Client_Service_write(&client, request));
                if (response->responseHeader.serviceResult != UA_STATUSCODE_GOOD)
                    return response->responseHeader.serviceResult;
                return response->resultsSize == 1 ? response->results[0]
                                                  : UA_STATUSCODE_BADUNKNOWNRESPONSE;
            });
    } catch (const RuntimeError& error) {
        // Who has cancelled in time knows that nothing was written; who was late must be told.
        if (!error.is(ErrorNumber::Cancelled) || !*sent) throw;
        throw unknownOutcome(UA_STATUSCODE_BADREQUESTCANCELLEDBYCLIENT, "Scrittura annullata");
    }
    if (isOutcomeUnknown(status)) throw unknownOutcome(status, describe(status));
    check(status);
}

}  // namespace velt::opcua
