// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/access/querycontext.h"
#include "adapters/access/resultrows.h"
#include "adapters/access/sqltoken.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace velt::access {

/// Columns of a table over a stretch of time, in its order: what a trend is loaded with. It is
/// answered from one reading of the columns, without the engine, which would hand over value by
/// value.
struct TimeQuery {
    std::vector<std::string> columns;
    std::string table;
    std::string dateColumn;
    double low = 0;  ///< days of the timeline, both included
    double high = 0;
};

/// Recognises `SELECT c, ... FROM t WHERE (d >= #...# AND d <= #...#) ORDER BY d`, with or without
/// the brackets. Nothing for any other statement.
[[nodiscard]] std::optional<TimeQuery> recogniseTimeQuery(const std::vector<SqlToken>& tokens);

/// Runs it. Null when it is a case for the engine after all: a table or column that does not exist,
/// a text among the columns, bounds for something that is no date.
[[nodiscard]] std::shared_ptr<const ResultRows> runTimeQuery(const TimeQuery& query,
                                                             QueryContext& context);

}  // namespace velt::access
