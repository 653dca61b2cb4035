// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/access/querycontext.h"
#include "adapters/access/tablesnapshot.h"

#include <string>

struct sqlite3;

namespace velt::access {

/// Makes the table `name` of the context's file known to the engine under this name. It is opened
/// when a statement first uses it: ranges of a date column and the order by one column are left to
/// the reading, everything else to the engine.
void registerTable(sqlite3* engine, const std::string& name, QueryContext& context);

/// The kind of a result column from the type that its table declared for it, which the engine
/// hands through; Unknown for an expression (null).
[[nodiscard]] FieldType declaredType(const char* declaration);

}  // namespace velt::access
