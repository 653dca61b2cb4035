// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/access/jet/format.h"

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace velt::jet {

class PageReader;

/// A table of an open file: its definition and the pages that hold its rows. Cheap to copy;
/// keeps its file open. Rows are read with a Cursor.
struct Table {
    struct Content;
    std::shared_ptr<const Content> content;

    [[nodiscard]] const std::string& name() const;
    [[nodiscard]] const std::vector<Column>& columns() const;
    /// Index of a column in columns(), letter case ignored; -1 when there is none.
    [[nodiscard]] int columnIndex(std::string_view name) const;
    /// The row count that the definition states (a hint: never trusted for reading).
    [[nodiscard]] std::uint32_t statedRows() const;
};

/// An Access file open for reading. Opening reads the header and the catalogue; the size of the
/// file and the map of a table's pages are taken afresh by table(). All members may be called from
/// any thread. Errors are RuntimeError whose description names the file and the reason.
class Database {
public:
    /// Missing, unreadable, not an Access file, truncated, encrypted: RuntimeError.
    [[nodiscard]] static std::shared_ptr<Database> open(const std::filesystem::path& path);
    ~Database();
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;

    [[nodiscard]] Version version() const;
    [[nodiscard]] const std::filesystem::path& path() const;
    /// User tables in catalogue order, linked tables left out.
    [[nodiscard]] std::vector<std::string> tableNames() const;
    [[nodiscard]] bool hasTable(std::string_view name) const;
    /// A table by name, letter case ignored. Unknown, linked or damaged: RuntimeError naming it.
    [[nodiscard]] Table table(std::string_view name) const;

private:
    struct Impl;
    explicit Database(std::unique_ptr<Impl> impl);
    std::unique_ptr<Impl> impl_;
};

}  // namespace velt::jet
