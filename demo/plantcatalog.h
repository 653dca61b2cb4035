// SPDX-License-Identifier: MIT
#pragma once

#include "demo/plantvariable.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace velt::demo {

/// The stations of the demo plant with their variables; `seed` makes their values its own.
[[nodiscard]] std::vector<PlantStation> plantStations(std::uint64_t seed);

/// The variables of the server itself: how it and its calls to the stations fare.
[[nodiscard]] std::vector<PlantVariable> serverVariables(std::uint64_t seed);

/// A plant for measuring: `stations` times `variables` numbers that all change at each interval.
[[nodiscard]] std::vector<PlantStation> loadStations(std::size_t stations, std::size_t variables,
                                                     std::uint64_t seed);

}  // namespace velt::demo
