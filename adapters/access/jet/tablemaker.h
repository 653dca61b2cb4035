// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/access/jet/definitionbuilder.h"
#include "adapters/access/jet/format.h"
#include "adapters/access/jet/pageallocator.h"

#include <cstdint>
#include <vector>

namespace velt::jet {

/// Writes an empty table: its maps, the pages of its indexes (whose places are filled in here) and
/// its definition at `page`. Nothing refers to it yet.
void makeTable(PageAllocator& allocator, std::uint32_t page, bool system,
               std::vector<Column> columns, std::vector<NewIndex> indexes = {});

/// Writes a data page of maps: what page 1 is for the file.
[[nodiscard]] std::vector<std::uint8_t> makeMapPage(
    const Layout& layout, std::uint32_t owner, const std::vector<std::vector<std::uint8_t>>& maps);

/// Bytes of a map row.
[[nodiscard]] std::size_t mapRowSize(const Layout& layout);

}  // namespace velt::jet
