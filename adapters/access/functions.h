// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/access/querycontext.h"

#include <string_view>

struct sqlite3;

namespace velt::access {

/// Gives the engine the order of texts and the functions that statements may call.
void registerFunctions(sqlite3* engine, QueryContext& context);

/// True for the functions that a statement may call, name in lower case.
[[nodiscard]] bool isAllowedFunction(std::string_view name);

}  // namespace velt::access
