// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtimeerror.h"

#include <open62541/statuscodes.h>
#include <open62541/types.h>

#include <string>

namespace velt::opcua {

/// What a status code says, for an operator (in Italian); codes without a text of their own by
/// their name.
[[nodiscard]] std::string describe(UA_StatusCode status);

/// An error whose number is the status code, as a negative number, and whose text is describe().
[[nodiscard]] RuntimeError statusError(UA_StatusCode status);

/// Raises statusError() unless the code is good (uncertain ones pass).
void check(UA_StatusCode status);

}  // namespace velt::opcua
