// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtimeerror.h"

#include <open62541/types.h>

#include <string>
#include <string_view>

namespace velt::demo {

/// RuntimeError with the library's name of the status unless it is good; `what` was attempted.
inline void check(UA_StatusCode status, std::string_view what) {
    if (status != UA_STATUSCODE_GOOD)
        throw RuntimeError(ErrorNumber::InvalidCall,
                           std::string(what) + ": " + UA_StatusCode_name(status));
}

}  // namespace velt::demo
