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

/// The different values of one whole column: what fills the lists of stations and alarms. It is
/// answered from the dictionary that one reading of the column leaves, without the engine.
struct DistinctQuery {
    std::string table;
    std::string column;
    bool descending = false;
};

/// Recognises `SELECT c FROM t GROUP BY c [ORDER BY c [ASC|DESC]]`, and the same with DISTINCT in
/// place of or beside the grouping. Nothing for any other statement.
[[nodiscard]] std::optional<DistinctQuery> recogniseDistinct(const std::vector<SqlToken>& tokens);

/// Runs it. Of texts that compare equal the first in the file stands for all.
[[nodiscard]] std::shared_ptr<const ResultRows> runDistinct(const DistinctQuery& query,
                                                            QueryContext& context);

}  // namespace velt::access
