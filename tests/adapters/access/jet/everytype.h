// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/access/jet/writer.h"

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace velt::jet::test {

using Row = std::vector<Variant>;

/// A column of every type that a new file can have.
[[nodiscard]] std::vector<ColumnDefinition> everyType();
/// Rows for it: usual values, extremes, everything null, null in one column at a time, texts and
/// long values around the sizes where their storage changes.
[[nodiscard]] std::vector<Row> everyTypeRows();
void writeTable(Writer& writer, const std::string& name,
                const std::vector<ColumnDefinition>& columns, const std::vector<Row>& rows);
/// A file with a table "T" of everyTypeRows() and a table "Vuota" without rows.
void writeEveryType(const std::filesystem::path& path, Version version);

/// What reading a whole file met.
struct Reading {
    std::uint64_t tables = 0;
    std::uint64_t rows = 0;
    std::uint64_t unreadable = 0;
    std::uint64_t errors = 0;  ///< RuntimeError of a table or value
};

/// Opens the file and reads every value of every table. RuntimeError only from opening; what else
/// comes out is a fault.
Reading readEverything(const std::filesystem::path& path);

}  // namespace velt::jet::test
