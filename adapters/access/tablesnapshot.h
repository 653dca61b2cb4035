// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/access/column.h"
#include "adapters/access/jet/database.h"

#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <vector>

namespace velt::access {

/// How a column of a table appears in queries.
[[nodiscard]] FieldType fieldType(const jet::Column& column);

/// What a snapshot takes of a table.
struct Selection {
    /// Rows whose date in `column` lies in a range, in days of the timeline; null never does.
    struct DateRange {
        int column = 0;
        double low = -std::numeric_limits<double>::infinity();
        double high = std::numeric_limits<double>::infinity();
        bool lowIncluded = true;
        bool highIncluded = true;
        friend bool operator==(const DateRange&, const DateRange&) = default;
    };

    std::vector<bool> columns;  ///< by index in the table; the others are not read
    std::optional<DateRange> range;
    int orderColumn = -1;  ///< one of `columns`; -1: as they lie in the file
    bool descending = false;
    friend bool operator==(const Selection&, const Selection&) = default;
};

/// The wanted rows and columns of a table in the wanted order: null before everything, rows
/// of equal values as they lie in the file. Dates are days of the timeline, texts are ordered by
/// compareText().
class TableSnapshot {
public:
    /// `columns` by index in the table; `orderColumn` as in Selection.
    TableSnapshot(std::vector<Column> columns, std::size_t rowCount, int orderColumn,
                  bool descending);

    [[nodiscard]] std::size_t rowCount() const { return rowCount_; }
    /// A column that was asked for, and the row of it at a position of the wanted order.
    [[nodiscard]] const Column& column(int index) const {
        return columns_[static_cast<std::size_t>(index)];
    }
    [[nodiscard]] std::size_t row(std::size_t position) const {
        return order_.empty() ? position : order_[position];
    }

private:
    /// `key` gives a row's number to sort by.
    template <typename Key>
    void sort(const Key& key, bool descending);

    std::vector<Column> columns_;
    std::vector<std::uint32_t> order_;  ///< empty when the rows lie in the wanted order
    std::size_t rowCount_;
};

}  // namespace velt::access
