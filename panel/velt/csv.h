// SPDX-License-Identifier: MIT
#pragma once

#include "panel/velt/output.h"
#include "platform/rowset.h"
#include "platform/variant.h"

#include <string>
#include <vector>

namespace velt::cli {

/// Writes one record as RFC 4180 wants it, in UTF-8. Null is nothing, empty text is `""`.
void writeCsvRecord(Output& output, const std::vector<Variant>& values);

/// Writes a line of the column names and the rows.
void writeCsv(Output& output, const RowSet& rows);

}  // namespace velt::cli
