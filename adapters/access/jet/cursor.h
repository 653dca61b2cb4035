// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/access/jet/database.h"

#include <array>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>

namespace velt::jet {

/// Reads the rows of a table in the order of its pages, deleted rows left out. Values are decoded
/// only when asked for. Used by one thread at a time.
class Cursor {
public:
    explicit Cursor(const Table& table);
    ~Cursor();
    Cursor(Cursor&&) noexcept;
    Cursor& operator=(Cursor&&) noexcept;

    /// Goes to the next live row; false behind the last.
    bool next();
    /// Goes back before the first row.
    void rewind();
    /// The current row's place, for seek.
    [[nodiscard]] RowId rowId() const;
    /// Goes to a row by its place; false when it is not (or no longer) there.
    bool seek(RowId id);

    /// Rows skipped so far because they could not be taken apart. Never guessed at.
    [[nodiscard]] std::uint64_t unreadableRows() const;

    // The value of column `index` of Table::columns() in the current row. What is asked must fit
    // the column's type; null reads as 0, empty or false. All but isNull raise RuntimeError for a
    // calculated column, text() and bytes() also for a Memo or Ole value whose pages are damaged.

    [[nodiscard]] bool isNull(int index) const;
    /// Boolean (never null).
    [[nodiscard]] bool boolean(int index) const;
    /// Byte, Integer, Long, Currency (times 10000), ComplexId, BigInt.
    [[nodiscard]] std::int64_t integer(int index) const;
    /// Single, Double, Date: as it lies in the file.
    [[nodiscard]] double real(int index) const;
    /// Text, Memo, ExtendedDate as UTF-8; the view is valid until the next call on this cursor.
    [[nodiscard]] std::string_view text(int index);
    /// The raw bytes of a Text column as stored (for comparing and hashing without decoding);
    /// valid until the cursor moves.
    [[nodiscard]] std::span<const std::uint8_t> raw(int index) const;
    /// Binary, Ole, Guid (16 bytes as stored); valid until the next call on this cursor.
    [[nodiscard]] std::span<const std::uint8_t> bytes(int index);
    /// Numeric as decimal text with "." and the column's scale.
    [[nodiscard]] std::string numeric(int index) const;

private:
    struct Impl;
    std::unique_ptr<Impl> impl_;
};

}  // namespace velt::jet
