// SPDX-License-Identifier: MIT
#include "adapters/access/tablereader.h"

#include "adapters/access/timeline.h"
#include "platform/runtimeerror.h"

#include <algorithm>
#include <utility>

namespace velt::access {
namespace {

constexpr std::size_t RowsBetweenChecks = 4096;

bool isWithin(const Selection::DateRange& range, const jet::Cursor& cursor) {
    if (cursor.isNull(range.column)) return false;
    const double day = toTimeline(cursor.real(range.column));
    return (range.lowIncluded ? day >= range.low : day > range.low) &&
           (range.highIncluded ? day <= range.high : day < range.high);
}

/// Appends the cursor's row to the columns. False when a value of it is damaged.
bool readRow(jet::Cursor& cursor, const std::vector<CellReader*>& cells,
             std::vector<Column>& columns, std::size_t row) {
    try {
        for (CellReader* cell : cells) cell->read(cursor, columns);
        return true;
    } catch (const RuntimeError& error) {
        if (!error.is(ErrorNumber::UnknownFileFormat)) throw;
        for (Column& column : columns) column.truncate(row);
        return false;
    }
}

}  // namespace

TableReader::TableReader(jet::Table table, QueryControl& control)
    : table_(std::move(table)), control_(control), memory_(control) {
    for (std::size_t i = 0; i < table_.columns().size(); ++i)
        cells_.emplace_back(table_.columns()[i], static_cast<int>(i));
}

std::shared_ptr<const TableSnapshot> TableReader::read(const Selection& selection) {
    if (last_ && selection == lastSelection_) return last_;
    last_.reset();

    std::vector<Column> columns;
    std::vector<CellReader*> wanted;
    for (CellReader& cell : cells_) {
        if (selection.columns[columns.size()]) wanted.push_back(&cell);
        columns.push_back(cell.emptyColumn());
    }
    std::size_t rows = 0;
    std::uint64_t unreadable = 0;
    jet::Cursor cursor(table_);
    for (std::size_t seen = 1; cursor.next(); ++seen) {
        if (seen % RowsBetweenChecks == 0) account(columns);
        if (selection.range && !isWithin(*selection.range, cursor)) continue;
        if (readRow(cursor, wanted, columns, rows))
            ++rows;
        else
            ++unreadable;
    }
    unreadableRows_ = std::max(unreadableRows_, unreadable + cursor.unreadableRows());
    account(columns);
    last_ = std::make_shared<const TableSnapshot>(std::move(columns), rows, selection.orderColumn,
                                                  selection.descending);
    lastSelection_ = selection;
    return last_;
}

void TableReader::account(const std::vector<Column>& columns) {
    std::size_t bytes = 0;
    for (const Column& column : columns) bytes += column.bytes();
    for (const CellReader& cell : cells_) bytes += cell.bytes();
    memory_.set(bytes);
    control_.check();
}

}  // namespace velt::access
