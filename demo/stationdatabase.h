// SPDX-License-Identifier: MIT
#pragma once

#include "demo/plantvariable.h"
#include "platform/date.h"

#include <filesystem>

namespace velt::demo {

/// Brings the database of a station up to the minute of `now`: one table per trend, named after it,
/// with the columns Data and Valore and a sample for each minute, in order of time. A missing file
/// is made with the samples of `days` days before and appears under its name only when it is
/// complete; to an existing one only what has come since is appended. RuntimeError.
void updateStationDatabase(const std::filesystem::path& file, const PlantStation& station,
                           const Date& now, int days);

/// The trends of a station: group after group, as the configuration names them.
[[nodiscard]] std::vector<PlantVariable> trendsOf(const PlantStation& station);

}  // namespace velt::demo
