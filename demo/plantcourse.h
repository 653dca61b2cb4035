// SPDX-License-Identifier: MIT
#pragma once

#include "demo/plantvariable.h"

#include <cstdint>

namespace velt::demo {

/// What a variable holds at a moment that is no multiple of anything in particular: a pure function
/// of the variable and of the time, so that samples of the past and live values agree.
/// `milliseconds` are those of Date; `interval` is how long a value stays the same.
[[nodiscard]] PlantValue valueAt(const PlantVariable& variable, std::int64_t milliseconds,
                                 std::int64_t interval);

/// The value of a Course::Analog as a number.
[[nodiscard]] double analogAt(const PlantVariable& variable, std::int64_t milliseconds,
                              std::int64_t interval);

/// Whether the station has kept the sample of that moment: now and then it loses some hours.
[[nodiscard]] bool isRecorded(const PlantVariable& variable, std::int64_t milliseconds);

enum class Fault { None, Uncertain, LastUsable, SensorFailure, NoCommunication, OutOfService };
enum class Limit { None, Low, High, Constant };

struct PlantQuality {
    Fault fault = Fault::None;
    Limit limit = Limit::None;
};

[[nodiscard]] PlantQuality qualityAt(const PlantVariable& variable, std::int64_t milliseconds);

}  // namespace velt::demo
