// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/access/jet/format.h"
#include "platform/variant.h"

#include <cstdint>
#include <filesystem>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace velt::jet {

struct ColumnDefinition {
    std::string name;
    ColumnType type = ColumnType::Text;
    int textLength = 255;  ///< characters, of Text: 1 to 255
    int precision = 18;    ///< digits, of Numeric: 1 to 28
    int scale = 0;         ///< decimals among them
};

/// Creates Access files and appends rows to their tables. One writer per file at a time (a second
/// one is refused where the file system knows locks), used by one thread at a time. Errors are
/// RuntimeError; they name the file, those of a single value its column.
///
/// A reader in another process never sees half of what is written: rows are in the file before the
/// page counts them, pages before the table's map lists them, a new table before the catalogue
/// names it, and each of these steps changes a single byte. (Two steps change more at once: a map
/// that names its next map page, every 128 MiB, and the first time that a table of another program
/// outgrows its map.) The order holds between processes; nothing is forced to the disk (no fsync),
/// so a power failure may lose or mix what the system had not written yet. After an error what was
/// in the file before is still readable, and flush() may be tried again.
class Writer {
public:
    /// A new file without tables; an existing file raises RuntimeError. Jet3 or Jet4.
    [[nodiscard]] static Writer create(const std::filesystem::path& path,
                                       Version version = Version::Jet4);
    /// Opens an existing file to append to it.
    [[nodiscard]] static Writer open(const std::filesystem::path& path);
    ~Writer();
    Writer(Writer&&) noexcept;
    Writer& operator=(Writer&&) noexcept;

    /// Only in files that create() made. RuntimeError 5 for what the format does not allow; names
    /// of tables are of letters without accents, digits, blanks and underscores, and the index of
    /// a Jet 4 catalogue has room for about a hundred tables.
    void createTable(std::string_view name, std::span<const ColumnDefinition> columns);
    /// Appends one row; values in the order of the table's columns, Null for null (in a Boolean
    /// column: false). Numbers go into every numeric column that holds them exactly, decimal text
    /// into Numeric, bytes into Binary, Ole and Guid. A value that does not fit its column:
    /// RuntimeError 13 or 6. A table with an index is refused.
    /// Rows are kept in memory until their page is full or flush() is called.
    void append(std::string_view table, std::span<const Variant> values);
    /// Writes what is still buffered. The destructor does the same but cannot report errors.
    void flush();

private:
    struct Impl;
    explicit Writer(std::unique_ptr<Impl> impl);
    std::unique_ptr<Impl> impl_;
};

}  // namespace velt::jet
