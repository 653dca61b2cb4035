// SPDX-License-Identifier: MIT
#include "adapters/access/jet/rowformat.h"

#include <algorithm>

namespace velt::jet {
namespace {

Field makeField(const Column& column, std::uint32_t head) {
    Field field;
    field.type = column.type;
    field.fixed = column.fixed;
    field.calculated = column.calculated;
    field.number = column.number;
    field.variable = column.variableIndex;
    field.offset = head + column.fixedOffset;
    field.size = sizeOf(column.type);
    // A text or binary column of fixed length fills its place.
    const bool sized = field.size != 0 || column.type == ColumnType::Boolean;
    if (column.fixed && !sized) field.size = column.length;
    return field;
}

}  // namespace

std::uint16_t sizeOf(ColumnType type) {
    switch (type) {
        case ColumnType::Byte: return 1;
        case ColumnType::Integer: return 2;
        case ColumnType::Long:
        case ColumnType::Single:
        case ColumnType::ComplexId: return 4;
        case ColumnType::Currency:
        case ColumnType::Double:
        case ColumnType::Date:
        case ColumnType::BigInt: return 8;
        case ColumnType::Guid: return 16;
        case ColumnType::Numeric: return 17;
        case ColumnType::Boolean:  // lives in the null mask
        case ColumnType::Binary:
        case ColumnType::Text:
        case ColumnType::Ole:
        case ColumnType::Memo:
        case ColumnType::ExtendedDate: return 0;
    }
    return 0;
}

RowFormat::RowFormat(bool isJet3, std::uint16_t variableColumns, std::span<const Column> columns)
    : jet3(isJet3), hasVariables(variableColumns > 0) {
    const std::uint32_t head = jet3 ? 1 : 2;  // the row's column count
    fixedEnd = head;
    for (const Column& column : columns) {
        const Field field = makeField(column, head);
        fields.push_back(field);
        columnCount =
            std::max<std::uint16_t>(columnCount, static_cast<std::uint16_t>(field.number + 1));
        if (field.fixed)
            fixedEnd = std::max(fixedEnd, field.offset + field.size);
        else if (field.size != 0)
            checkEachField = true;
    }
}

}  // namespace velt::jet
