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

/// Creates Access files and appends rows to their tables. One writer per file at a time. A reader
/// in another process never sees a broken file: rows are complete on disk before the page that
/// counts them says so. Errors are RuntimeError naming the file.
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

    void createTable(std::string_view name, std::span<const ColumnDefinition> columns);
    /// Appends one row; values in the order of the table's columns, Null for null. A value that
    /// does not fit its column: RuntimeError 13 or 6. A table with an index is refused.
    void append(std::string_view table, std::span<const Variant> values);
    /// Writes what is still buffered. The destructor does the same but cannot report errors.
    void flush();

private:
    struct Impl;
    explicit Writer(std::unique_ptr<Impl> impl);
    std::unique_ptr<Impl> impl_;
};

}  // namespace velt::jet
