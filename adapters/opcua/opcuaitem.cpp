// SPDX-License-Identifier: MIT
#include "adapters/opcua/opcuaitem.h"

#include "adapters/opcua/status.h"

namespace velt::opcua {

void OpcUaItem::Write(const Variant& value) {
    const auto converted = std::make_shared<OwnedVariant>(toUa(value, identity_.type));
    const UA_StatusCode status =
        connection_->wait([node = identity_.node, converted](UA_Client& client, ThreadSide&,
                                                             const std::stop_token& stop) {
            // Cancelled while it waited for its turn: it must not happen later on.
            if (stop.stop_requested()) return UA_STATUSCODE_BADREQUESTCANCELLEDBYCLIENT;
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
    check(status);
}

}  // namespace velt::opcua
