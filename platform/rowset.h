// SPDX-License-Identifier: MIT
#pragma once

#include "platform/export.h"
#include "platform/variant.h"

#include <cstddef>
#include <span>
#include <string>

namespace velt {

/// The rows of an opened query: immutable, so that it may be read from any thread and outlive the
/// recordset that made it. Rows and columns count from 0.
class VELT_API RowSet {
public:
    virtual ~RowSet() = default;
    [[nodiscard]] virtual std::size_t rowCount() const = 0;
    [[nodiscard]] virtual std::size_t columnCount() const = 0;
    [[nodiscard]] virtual const std::string& columnName(std::size_t column) const = 0;
    [[nodiscard]] virtual Variant value(std::size_t row, std::size_t column) const = 0;
    /// A whole numeric or date column as doubles (null is a quiet NaN), valid as long as the row
    /// set; empty when the column holds anything else.
    [[nodiscard]] virtual std::span<const double> doubles(std::size_t column) const = 0;
};

}  // namespace velt
