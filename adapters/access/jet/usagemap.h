// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/access/jet/layout.h"
#include "adapters/access/jet/pagereader.h"

#include <cstdint>
#include <vector>

namespace velt::jet {

/// The pages that the map at `place` lists, ascending. Raises Damaged when the map makes no sense
/// and RuntimeError when it lists pages that the file does not have.
[[nodiscard]] std::vector<std::uint32_t> mappedPages(const PageReader& file, RowPointer place);

}  // namespace velt::jet
