// SPDX-License-Identifier: MIT
#pragma once

#include "platform/chart.h"

#include <array>
#include <functional>
#include <string_view>

namespace velt {

/// Writes the samples in view of the wanted series, one a line and series after series, as
/// spreadsheets with a decimal comma read them: UTF-8 with mark, ";" between the fields, CRLF.
/// Values have all their digits; a missing one is an empty field. `write` gets the text in pieces,
/// and ends the work by returning false.
VELT_API void writeSampleCsv(const ChartContents& view,
                             const std::array<bool, ChartSeriesCount>& wanted,
                             const std::function<bool(std::string_view)>& write);

}  // namespace velt
