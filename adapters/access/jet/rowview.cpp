// SPDX-License-Identifier: MIT
#include "adapters/access/jet/rowview.h"

#include <algorithm>

namespace velt::jet {

bool RowView::take(Bytes row, const RowFormat& format) {
    const std::size_t head = format.jet3 ? 1 : 2;
    if (row.size() < head) return false;
    row_ = row;
    columns_ = format.jet3 ? row[0] : u16At(row.data());
    const std::size_t maskSize = (columns_ + 7) / 8;
    if (row.size() < head + maskSize) return false;

    std::size_t end = row.size() - maskSize;
    mask_ = row.data() + end;
    variables_ = 0;
    if (format.hasVariables) {
        if (!(format.jet3 ? takeVariablesJet3(end) : takeVariables(end))) return false;
        end = starts_[0];
    }
    if (columns_ >= format.columnCount && end >= format.fixedEnd && !format.checkEachField)
        return true;
    return eachFieldFits(format, end);
}

/// Backwards from `end`: the number of values, their starts in reverse order, the end of the last.
bool RowView::takeVariables(std::size_t end) {
    if (end < 2 + 2 + 2) return false;
    variables_ = u16At(&row_[end - 2]);
    const std::size_t tableSize = 2 + 2 * (variables_ + 1);
    if (variables_ > MostVariables || end < 2 + tableSize) return false;
    const std::uint8_t* start = &row_[end - 4];
    for (std::size_t i = 0; i <= variables_; ++i, start -= 2) starts_[i] = u16At(start);
    return startsAreOrdered(2, end - tableSize);
}

/// The same with starts of one byte. Each byte of the jump table names the value from which on
/// 256 more are to be added.
bool RowView::takeVariablesJet3(std::size_t end) {
    if (end < 1 + 1 + 1) return false;
    variables_ = row_[end - 1];
    const std::size_t jumps = (row_.size() - 1) / 256;
    const std::size_t tableSize = 1 + jumps + variables_ + 1;
    if (end < 1 + tableSize) return false;
    const std::uint8_t* jump = &row_[end - 1] - 1;
    const std::uint8_t* start = &row_[end - 1] - 1 - jumps;
    // The row's length decides how many jumps there are; those that the values do not need mean
    // nothing.
    const std::size_t needed = std::min(jumps, (end - tableSize) / 256);
    std::size_t taken = 0;
    for (std::size_t i = 0; i <= variables_; ++i, --start) {
        for (; taken < needed && *jump == i; --jump) ++taken;
        starts_[i] = static_cast<std::uint16_t>(*start + 256 * taken);
    }
    return startsAreOrdered(1, end - tableSize);
}

bool RowView::startsAreOrdered(std::size_t begin, std::size_t end) const {
    return starts_[0] >= begin && starts_[variables_] <= end &&
           std::is_sorted(starts_.begin(), starts_.begin() + static_cast<long>(variables_) + 1);
}

bool RowView::eachFieldFits(const RowFormat& format, std::size_t fixedEnd) const {
    return std::ranges::all_of(format.fields, [&](const Field& field) {
        if (field.type == ColumnType::Boolean || field.calculated || isNull(field)) return true;
        return field.fixed ? field.offset + field.size <= fixedEnd
                           : lengthOf(field.variable) >= field.size;
    });
}

}  // namespace velt::jet
