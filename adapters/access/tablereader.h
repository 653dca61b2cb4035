// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/access/cellreader.h"
#include "adapters/access/querycontrol.h"
#include "adapters/access/tablesnapshot.h"

#include <cstdint>
#include <memory>
#include <vector>

namespace velt::access {

/// Reads one table for one query, each time in one pass over the file. The texts of its snapshots
/// stay where they are as long as the reader lives, also when a snapshot is gone.
class TableReader {
public:
    TableReader(jet::Table table, QueryControl& control);

    [[nodiscard]] const jet::Table& table() const { return table_; }
    /// The last snapshot is kept and given again for the same selection: the inner table of a join
    /// is asked for the same many times.
    [[nodiscard]] std::shared_ptr<const TableSnapshot> read(const Selection& selection);
    /// Rows that could not be taken apart, in the worst pass.
    [[nodiscard]] std::uint64_t unreadableRows() const { return unreadableRows_; }

private:
    void account(const std::vector<Column>& columns);

    jet::Table table_;
    QueryControl& control_;
    MemoryUse memory_;
    std::vector<CellReader> cells_;  ///< one per column
    std::shared_ptr<const TableSnapshot> last_;
    Selection lastSelection_;
    std::uint64_t unreadableRows_ = 0;
};

}  // namespace velt::access
