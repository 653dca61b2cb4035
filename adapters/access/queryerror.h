// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtimeerror.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace velt::access {

/// Errors of a query that ErrorNumber does not list.
namespace queryerror {
inline constexpr int AmbiguousColumn = 3079;
inline constexpr int UnknownFunction = 3085;
inline constexpr int TimeExpired = -2147217871;  ///< 0x80040E31, as ADO has it
inline constexpr int OutOfMemory = 14;
}  // namespace queryerror

/// RuntimeError 3075: the reason and the part of the statement around `offset`.
[[nodiscard]] RuntimeError syntaxError(std::string_view reason, std::string_view statement,
                                       std::size_t offset);
[[nodiscard]] RuntimeError unknownTable(std::string_view name);
[[nodiscard]] RuntimeError unknownColumn(std::string_view name);
/// RuntimeError 13: `column` was compared with a value of another kind.
[[nodiscard]] RuntimeError typeMismatch(std::string_view column);

}  // namespace velt::access
