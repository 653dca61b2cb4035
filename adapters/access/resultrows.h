// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/access/column.h"
#include "platform/rowset.h"

#include <cstddef>
#include <span>
#include <string>
#include <vector>

namespace velt::access {

/// The rows of a query, compact. Reading takes no locks and is safe from any thread.
class ResultRows final : public RowSet {
public:
    /// Columns of equal length, dates as they are stored.
    ResultRows(std::vector<std::string> names, std::vector<Column> columns);

    [[nodiscard]] std::size_t rowCount() const override;
    [[nodiscard]] std::size_t columnCount() const override { return columns_.size(); }
    [[nodiscard]] const std::string& columnName(std::size_t column) const override {
        return names_[column];
    }
    [[nodiscard]] Variant value(std::size_t row, std::size_t column) const override {
        return columns_[column].value(row);
    }
    [[nodiscard]] std::span<const double> doubles(std::size_t column) const override {
        return columns_[column].numbers();
    }
    /// What the column's values are; Unknown when it holds only nulls of no declared kind.
    [[nodiscard]] FieldType columnType(std::size_t column) const { return columns_[column].type(); }

private:
    std::vector<std::string> names_;
    std::vector<Column> columns_;
};

}  // namespace velt::access
