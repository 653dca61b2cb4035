// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/access/jet/database.h"
#include "adapters/access/jet/layout.h"
#include "adapters/access/jet/pagereader.h"
#include "adapters/access/jet/rowformat.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace velt::jet {

/// What a table is read with; never changes after it was made.
struct Table::Content {
    std::shared_ptr<const PageReader> file;
    std::string name;
    std::uint32_t definitionPage = 0;
    std::uint32_t statedRows = 0;
    std::vector<Column> columns;
    RowFormat format;
    std::vector<std::uint32_t> pages;  ///< that may hold rows, ascending
};

/// Reads the definition at `page` and the map of the table's pages. Damaged or RuntimeError.
[[nodiscard]] Table loadTable(const std::shared_ptr<const PageReader>& file, std::string name,
                              std::uint32_t page);

}  // namespace velt::jet
