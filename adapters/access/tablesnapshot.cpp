// SPDX-License-Identifier: MIT
#include "adapters/access/tablesnapshot.h"

#include "adapters/access/textorder.h"
#include "platform/runtimeerror.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace velt::access {
FieldType fieldType(const jet::Column& column) {
    using jet::ColumnType;
    switch (column.type) {
        case ColumnType::Boolean: return FieldType::Boolean;
        case ColumnType::Byte: return FieldType::Byte;
        case ColumnType::Integer: return FieldType::Integer;
        case ColumnType::Long:
        case ColumnType::ComplexId: return FieldType::Long;
        case ColumnType::Single: return FieldType::Single;
        case ColumnType::Currency:
        case ColumnType::Double:
        case ColumnType::Numeric:
        case ColumnType::BigInt: return FieldType::Double;
        case ColumnType::Date: return FieldType::Date;
        case ColumnType::Binary:
        case ColumnType::Text:
        case ColumnType::Ole:
        case ColumnType::Memo:
        case ColumnType::Guid:
        case ColumnType::ExtendedDate: return FieldType::Text;
    }
    return FieldType::Text;
}

TableSnapshot::TableSnapshot(std::vector<Column> columns, std::size_t rowCount, int orderColumn,
                             bool descending)
    : columns_(std::move(columns)), rowCount_(rowCount) {
    if (orderColumn < 0) return;
    const Column& keys = column(orderColumn);
    constexpr double null = -std::numeric_limits<double>::infinity();  // before everything
    if (keys.type() == FieldType::Text) {
        const std::vector<std::uint32_t> ranks = textRanks(keys.dictionary());
        sort([&](std::size_t row) { return keys.isNull(row) ? null : ranks[keys.textId(row)]; },
             descending);
    } else {
        sort([&](std::size_t row) { return keys.isNull(row) ? null : keys.number(row); },
             descending);
    }
}

template <typename Key>
void TableSnapshot::sort(const Key& key, bool descending) {
    const auto before = [descending](double a, double b) { return descending ? a > b : a < b; };
    bool sorted = true;
    for (std::size_t row = 1; row < rowCount_ && sorted; ++row)
        sorted = !before(key(row), key(row - 1));
    if (sorted) return;

    if (rowCount_ > std::numeric_limits<std::uint32_t>::max())
        throw RuntimeError(ErrorNumber::Overflow);
    struct Entry {
        double key;
        std::uint32_t row;
    };
    std::vector<Entry> entries(rowCount_);
    for (std::uint32_t row = 0; row < entries.size(); ++row) entries[row] = {key(row), row};
    std::ranges::sort(entries, [&before](const Entry& a, const Entry& b) {
        return a.key == b.key ? a.row < b.row : before(a.key, b.key);
    });
    order_.reserve(entries.size());
    for (const Entry& entry : entries) order_.push_back(entry.row);
}

}  // namespace velt::access
