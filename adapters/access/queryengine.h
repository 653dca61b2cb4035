// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/access/querycontrol.h"
#include "adapters/access/resultrows.h"

#include <cstdint>
#include <filesystem>
#include <memory>
#include <stop_token>
#include <string_view>

namespace velt::access {

struct QueryResult {
    std::shared_ptr<const ResultRows> rows;
    /// Rows of the tables that could not be taken apart and are missing in the result.
    std::uint64_t unreadableRows = 0;
};

/// Answers SELECT statements of the Jet dialect over the tables of one Access file. It holds
/// nothing open: every query opens the file anew, so that a file that was replaced or has grown
/// gives its present content, and a query that failed leaves nothing behind. Callable from any
/// thread.
///
/// Columns keep the file's spelling of their names; names are found in any letter case. Texts
/// compare as compareText() says, null comes first and is a group of its own.
class QueryEngine {
public:
    explicit QueryEngine(std::filesystem::path file, const QueryLimits& limits = {});

    /// Runs a statement to its end. RuntimeError: 3065 not a SELECT, 3075 syntax, 3078 unknown
    /// table, 3061 unknown column, 3079 ambiguous column, 3085 unknown function, 13 a column
    /// compared with a value of another kind, 3059 stopped, -2147217871 and 14 beyond the limits
    /// of time and memory; and those of the file.
    [[nodiscard]] QueryResult run(std::string_view statement, std::stop_token stop = {}) const;
    /// Letter case ignored. RuntimeError when the file cannot be used.
    [[nodiscard]] bool hasTable(std::string_view name) const;

private:
    std::filesystem::path file_;
    QueryLimits limits_;
};

}  // namespace velt::access
