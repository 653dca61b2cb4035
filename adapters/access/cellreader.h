// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/access/column.h"
#include "adapters/access/jet/cursor.h"
#include "adapters/access/textdictionary.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace velt::access {

/// Reads the values of one column of a table into Columns that share one dictionary.
class CellReader {
public:
    CellReader(const jet::Column& column, int index);

    [[nodiscard]] Column emptyColumn() const { return Column(fieldType_, texts_); }
    /// Appends the value in the cursor's current row to columns[index].
    void read(jet::Cursor& cursor, std::vector<Column>& columns);
    /// Memory taken, roughly.
    [[nodiscard]] std::size_t bytes() const;

private:
    void readStoredText(jet::Cursor& cursor, Column& target);

    jet::ColumnType type_;
    int index_;
    FieldType fieldType_;
    std::shared_ptr<TextDictionary> texts_ = std::make_shared<TextDictionary>();
    // Equal stored bytes are decoded once.
    TextDictionary stored_;
    std::vector<std::uint32_t> decoded_;  ///< by number in stored_, number in texts_
};

}  // namespace velt::access
