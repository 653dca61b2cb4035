// SPDX-License-Identifier: MIT
#include "adapters/access/resultrows.h"

#include <utility>

namespace velt::access {

ResultRows::ResultRows(std::vector<std::string> names, std::vector<Column> columns)
    : names_(std::move(names)), columns_(std::move(columns)) {
    for (Column& column : columns_) column.freeze();
}

std::size_t ResultRows::rowCount() const { return columns_.empty() ? 0 : columns_.front().size(); }

}  // namespace velt::access
