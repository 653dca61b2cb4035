// SPDX-License-Identifier: MIT
#include "adapters/access/keywords.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace velt::access {

bool isKeyword(const SqlToken& token) {
    static constexpr std::array<std::string_view, 31> words{
        "SELECT",  "ALL",    "DISTINCT", "TOP",  "FROM",   "AS",    "WHERE", "GROUP",
        "BY",      "HAVING", "ORDER",    "ASC",  "DESC",   "UNION", "INNER", "LEFT",
        "RIGHT",   "OUTER",  "JOIN",     "ON",   "AND",    "OR",    "NOT",   "IN",
        "BETWEEN", "LIKE",   "IS",       "NULL", "EXISTS", "TRUE",  "FALSE"};
    return std::ranges::any_of(words,
                               [&token](std::string_view word) { return isWord(token, word); });
}

bool isComparison(const SqlToken& token) {
    static constexpr std::array<std::string_view, 6> operators{"=", "<", ">", "<=", ">=", "<>"};
    return std::ranges::any_of(operators, [&](std::string_view o) { return isOperator(token, o); });
}

bool isArithmetic(const SqlToken& token) {
    static constexpr std::array<std::string_view, 4> operators{"+", "-", "*", "/"};
    return std::ranges::any_of(operators, [&](std::string_view o) { return isOperator(token, o); });
}

}  // namespace velt::access
