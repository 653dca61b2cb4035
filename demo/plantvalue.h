// SPDX-License-Identifier: MIT
#pragma once

#include "platform/date.h"

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

namespace velt::demo {

/// A value of the plant in all the types that a server may offer, also those that a viewer does
/// not know.
using PlantValue =
    std::variant<bool, std::int8_t, std::uint8_t, std::int16_t, std::uint16_t, std::int32_t,
                 std::uint32_t, std::int64_t, float, double, Date, std::string, std::vector<bool>,
                 std::vector<std::int8_t>, std::vector<std::uint8_t>, std::vector<std::int16_t>,
                 std::vector<std::uint16_t>, std::vector<std::int32_t>, std::vector<std::uint32_t>,
                 std::vector<std::int64_t>, std::vector<float>, std::vector<double>,
                 std::vector<Date>, std::vector<std::string>>;

/// The scalar types, in the order of PlantValue.
enum class PlantType { Boolean, I1, UI1, I2, UI2, I4, UI4, I8, R4, R8, DateTime, Text };

}  // namespace velt::demo
