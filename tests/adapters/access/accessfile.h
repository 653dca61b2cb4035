// SPDX-License-Identifier: MIT
// A table in an Access file of a temporary folder, written by a test, and its queries.
#pragma once

#include "adapters/access/jet/writer.h"
#include "adapters/access/queryengine.h"
#include "tests/errorof.h"
#include "tests/tempfolder.h"

#include <string>
#include <vector>

namespace velt::access {

using Row = std::vector<Variant>;

class AccessFile {
public:
    explicit AccessFile(const std::string& name = "prova.mdb") : path_(folder_ / name) {}

    [[nodiscard]] const std::filesystem::path& path() const { return path_; }
    /// Adds a table to the file, which is made when it is not there.
    void addTable(const std::string& name, const std::vector<jet::ColumnDefinition>& columns,
                  const std::vector<Row>& rows);
    void append(const std::string& table, const std::vector<Row>& rows) const;
    /// The table Allarmi with some rows of every kind that matters to filters.
    void addAlarms();

    [[nodiscard]] std::shared_ptr<const ResultRows> query(const std::string& statement) const;
    /// The rows as text, one string per row, values joined by "|"; null reads "-".
    [[nodiscard]] std::vector<std::string> texts(const std::string& statement) const;
    /// What a statement raises.
    [[nodiscard]] RuntimeError error(const std::string& statement) const;

private:
    TempFolder folder_;
    std::filesystem::path path_;
};

/// A date written "2006-03-14 07:30:00".
[[nodiscard]] Date date(const std::string& text);

}  // namespace velt::access
