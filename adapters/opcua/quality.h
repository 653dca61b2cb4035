// SPDX-License-Identifier: MIT
#pragma once

#include <open62541/types.h>

#include <cstdint>

/// Between status codes of OPC UA and quality words of OPC Data Access.
namespace velt::opcua {

/// By OPC 10000-8 (Data Access), annex A (mapping to COM), A.4.3.3: severity and sub-code give the
/// quality, the limit bits (8 and 9) the two lowest bits. Beyond that table, and the reverse of
/// A.3.2.3, stands "last known" (20): UncertainNoCommunicationLastUsableValue, so that an operator
/// can tell a station that does not answer from an uncertain value.
[[nodiscard]] std::int32_t qualityOf(UA_StatusCode status);

/// The other way round; an unknown quality gives the plain Good, Uncertain or Bad.
[[nodiscard]] UA_StatusCode statusOf(std::int32_t quality);

}  // namespace velt::opcua
