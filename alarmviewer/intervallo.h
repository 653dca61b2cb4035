// SPDX-License-Identifier: MIT
#pragma once

#include "platform/date.h"
#include "platform/export.h"
#include "platform/settings.h"

#include <string>

/// The date-range block of a settings section, shared by the viewers that filter by date.
namespace velt {

/// Writes the block under `section` and selects the previous section again. Does nothing without
/// a settings object, writes nothing without a file.
VELT_API void SalvaIntervallo(Settings* settings, const std::string& section, bool isStart,
                              const Date& startDate, bool isEnd, const Date& endDate);

/// Reads the block into the arguments; they stay as they are without a settings object or file.
VELT_API void LeggiIntervallo(Settings* settings, const std::string& section, bool& isStart,
                              Date& startDate, bool& isEnd, Date& endDate);

}  // namespace velt
