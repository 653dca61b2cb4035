// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/access/sqltoken.h"

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace velt::access {

/// A statement in the words of the engine.
struct Translation {
    std::string sql;
    /// Where the tokens of `sql` come from: place in `sql`, place in the statement, ascending.
    std::vector<std::pair<std::size_t, std::size_t>> places;
    /// By result column: the column that a bare Min(...) or Max(...) is of, so that the result is
    /// of its kind; "" for everything else. Empty when there is none.
    std::vector<std::string> extremeOf;

    /// The place in the statement of a place in `sql`.
    [[nodiscard]] std::size_t sourcePlace(std::size_t place) const;
    /// Puts other text in the place of a token of `sql`.
    void replace(std::size_t place, std::size_t length, const std::string& text);
};

/// Translates a SELECT of the Jet dialect: names in brackets, `#...#` dates, both kinds of quotes,
/// `&`, True and False, TOP n, division that keeps fractions; unnamed result columns are called
/// Expr1000 + their position. RuntimeError 3065 for any other statement, 3075 for malformed ones
/// as far as they are noticed here; the rest is for the engine to notice.
/// Differences that remain: TOP gives exactly n rows, also when further ones are equal.
[[nodiscard]] Translation translate(std::vector<SqlToken> tokens, std::string_view statement);

}  // namespace velt::access
