// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/access/jet/bytes.h"
#include "adapters/access/jet/rowformat.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace velt::jet {

/// One row taken apart. Only looks at the bytes; they must outlive it.
class RowView {
public:
    /// False when the row contradicts itself; after true every value that is not null lies whole
    /// within the row.
    [[nodiscard]] bool take(Bytes row, const RowFormat& format);

    [[nodiscard]] bool isNull(const Field& field) const {
        if (field.type == ColumnType::Boolean) return false;
        return !bit(field.number) || (!field.fixed && field.variable >= variables_);
    }
    [[nodiscard]] bool boolean(const Field& field) const { return bit(field.number); }
    /// The bytes of a value that is not null.
    [[nodiscard]] Bytes value(const Field& field) const {
        if (field.fixed) return row_.subspan(field.offset, field.size);
        return row_.subspan(starts_[field.variable], lengthOf(field.variable));
    }

private:
    // A table has at most 255 columns.
    static constexpr std::size_t MostVariables = 255;

    /// The bit of a column; a column that was added after the row was written has none.
    [[nodiscard]] bool bit(std::size_t number) const {
        return number < columns_ && (mask_[number / 8] >> number % 8 & 1) != 0;
    }
    [[nodiscard]] std::size_t lengthOf(std::size_t variable) const {
        return static_cast<std::size_t>(starts_[variable + 1] - starts_[variable]);
    }
    [[nodiscard]] bool takeVariables(std::size_t end);
    [[nodiscard]] bool takeVariablesJet3(std::size_t end);
    [[nodiscard]] bool startsAreOrdered(std::size_t begin, std::size_t end) const;
    [[nodiscard]] bool eachFieldFits(const RowFormat& format, std::size_t fixedEnd) const;

    Bytes row_;
    const std::uint8_t* mask_ = nullptr;
    std::size_t columns_ = 0;
    std::size_t variables_ = 0;
    std::array<std::uint16_t, MostVariables + 1> starts_{};  ///< and the end of the last
};

}  // namespace velt::jet
