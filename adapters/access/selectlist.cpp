// SPDX-License-Identifier: MIT
#include "adapters/access/selectlist.h"

#include "adapters/access/keywords.h"

#include <span>

namespace velt::access {
namespace {

// As Access names columns that have no name of their own.
constexpr std::size_t FirstExpression = 1000;

using Tokens = std::span<const SqlToken>;

/// Splits the list into its columns, each by the range of its tokens.
std::vector<std::pair<std::size_t, std::size_t>> columnRanges(const std::vector<SqlToken>& tokens) {
    std::size_t first = 1;
    while (first < tokens.size() &&
           (isWord(tokens[first], "ALL") || isWord(tokens[first], "DISTINCT")))
        ++first;
    if (first < tokens.size() && isWord(tokens[first], "TOP")) first += 2;

    std::vector<std::pair<std::size_t, std::size_t>> ranges;
    int depth = 0;
    std::size_t i = first;
    for (; i < tokens.size(); ++i) {
        if (isOperator(tokens[i], "(")) ++depth;
        if (isOperator(tokens[i], ")")) --depth;
        if (depth != 0) continue;
        if (isWord(tokens[i], "FROM") || isWord(tokens[i], "UNION")) break;
        if (!isOperator(tokens[i], ",")) continue;
        ranges.emplace_back(first, i);
        first = i + 1;
    }
    ranges.emplace_back(first, i);
    return ranges;
}

/// name, name.name, *, name.*
bool isPlainColumn(Tokens column) {
    for (std::size_t i = 0; i < column.size(); ++i) {
        const bool separator = i % 2 == 1;
        if (separator ? !isOperator(column[i], ".")
                      : !isName(column[i]) && !isOperator(column[i], "*"))
            return false;
    }
    return column.size() % 2 == 1;
}

bool isNamed(Tokens column) { return column.size() > 2 && isWord(column[column.size() - 2], "AS"); }

/// The column of `Min(column)` or `Max(column)`, "" for anything else.
std::string extremeColumn(Tokens column) {
    if (isNamed(column)) column = column.first(column.size() - 2);
    if (column.size() < 4 || !(isWord(column[0], "MIN") || isWord(column[0], "MAX")) ||
        !isOperator(column[1], "(") || !isOperator(column.back(), ")"))
        return "";
    const Tokens argument = column.subspan(2, column.size() - 3);
    return isPlainColumn(argument) && isName(argument.back()) ? argument.back().text : "";
}

}  // namespace

SelectList readSelectList(const std::vector<SqlToken>& tokens) {
    SelectList list;
    bool positionsKnown = true;  // false behind a "*", which stands for any number of columns
    std::size_t position = 0;
    for (const auto& [first, end] : columnRanges(tokens)) {
        if (end <= first) continue;  // a syntax error, which the engine will find
        const Tokens column = Tokens(tokens).subspan(first, end - first);
        if (isOperator(column.back(), "*")) positionsKnown = false;
        if (!isPlainColumn(column) && !isNamed(column))
            list.names.emplace(end - 1, "Expr" + std::to_string(FirstExpression + position));
        list.extremeOf.push_back(extremeColumn(column));
        ++position;
    }
    if (!positionsKnown) list.extremeOf.clear();
    return list;
}

}  // namespace velt::access
