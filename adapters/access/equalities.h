// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/access/sqltoken.h"

#include <vector>

namespace velt::access {

/// Turns `((c = 'a') OR (c = 'b') OR ...)` into `(c IN ('a', 'b', ...))`. A filter for many
/// stations is written the first way; the engine would try one text after the other for every row
/// and refuse more than a thousand.
[[nodiscard]] std::vector<SqlToken> joinEqualities(std::vector<SqlToken> tokens);

}  // namespace velt::access
