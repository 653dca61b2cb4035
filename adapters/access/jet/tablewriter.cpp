// SPDX-License-Identifier: MIT
#include "adapters/access/jet/tablewriter.h"

#include "adapters/access/jet/bytewriter.h"
#include "adapters/access/jet/fileerror.h"
#include "adapters/access/jet/usagemap.h"
#include "platform/runtimeerror.h"

#include <algorithm>
#include <array>
#include <string>

namespace velt::jet {

TableWriter::TableWriter(PageAllocator& allocator, std::uint32_t definitionPage)
    : allocator_(&allocator),
      page_(definitionPage),
      definition_(readDefinition(*allocator.file().reader(), definitionPage)),
      tail_(readDefinitionTail(*allocator.file().reader(), definitionPage)),
      encoder_(definition_.columns,
               RowFormat(allocator.file().layout().jet3, definition_.variableColumns,
                         definition_.columns),
               definition_.variableColumns,
               [this](std::size_t index, Bytes value, std::vector<std::uint8_t>& row) {
                   storeLongValue(index, value, row);
               }),
      rows_(allocator, definitionPage, definition_.ownedPages, definition_.freePages),
      rowCount_(definition_.statedRows),
      writtenRowCount_(definition_.statedRows) {
    const auto pages = mappedPages(*allocator.file().reader(), definition_.ownedPages);
    if (!pages.empty()) rows_.resume(pages.back());
}

bool TableWriter::isWritable() const {
    return std::ranges::none_of(definition_.columns, [](const Column& column) {
        const bool fixedText =
            column.fixed && column.type != ColumnType::Boolean && sizeOf(column.type) == 0;
        return fixedText || column.calculated || column.type == ColumnType::ComplexId ||
               column.type == ColumnType::ExtendedDate;
    });
}

RowPointer TableWriter::append(std::span<const Variant> values) {
    if (values.size() != definition_.columns.size())
        throw RuntimeError(ErrorNumber::InvalidCall,
                           "Il numero di valori non è quello delle colonne.");
    const Bytes row = encoder_.encode(values);
    if (row.size() > RowAppender::longestRow(allocator_->file().layout()))
        throw RuntimeError(ErrorNumber::Overflow, "La riga è troppo lunga.");
    if (!rows_.fits(row.size())) flush();
    const RowPointer place = rows_.append(row);
    ++rowCount_;
    return place;
}

/// Long values before the rows that point to them, the count at the end.
void TableWriter::flush() {
    for (auto& [index, writer] : longValues_) writer.flush();
    rows_.flush();
    if (rowCount_ == writtenRowCount_) return;
    std::array<std::uint8_t, 4> count{};
    putAt(count.data(), rowCount_);
    allocator_->file().write(page_, allocator_->file().layout().statedRowsAt, count);
    writtenRowCount_ = rowCount_;
}

void TableWriter::storeLongValue(std::size_t index, Bytes value, std::vector<std::uint8_t>& row) {
    auto writer = longValues_.find(index);
    if (writer == longValues_.end()) {
        const auto& columns = tail_.longColumns;
        const auto column =
            std::ranges::find(columns, definition_.columns[index].number, &LongColumn::number);
        if (column == columns.end()) throw Damaged("manca la mappa di una colonna");
        writer = longValues_.emplace(index, LongValueWriter(*allocator_, *column)).first;
    }
    writer->second.append(value, row);
}

}  // namespace velt::jet
