// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/access/sqltoken.h"

#include <cstddef>
#include <map>
#include <string>
#include <vector>

namespace velt::access {

/// What is known of a statement's result columns from its words alone.
struct SelectList {
    /// Names for columns that have none: by the last token of the column's expression.
    std::map<std::size_t, std::string> names;
    /// As in Translation.
    std::vector<std::string> extremeOf;
};

/// Of the outermost SELECT, which must be the first token.
[[nodiscard]] SelectList readSelectList(const std::vector<SqlToken>& tokens);

}  // namespace velt::access
