// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/access/jet/format.h"
#include "adapters/access/jet/layout.h"
#include "adapters/access/jet/writer.h"

#include <span>
#include <vector>

namespace velt::jet {

/// The columns of a new table with their places in the rows. RuntimeError 5 for names, types,
/// lengths and numbers that the format does not allow.
[[nodiscard]] std::vector<Column> layOutColumns(std::span<const ColumnDefinition> definitions,
                                                const Layout& layout);

/// RuntimeError 5 when no table or column may have this name.
void checkName(std::string_view name);

}  // namespace velt::jet
