// SPDX-License-Identifier: MIT
#pragma once

#include "demo/opcserver.h"
#include "platform/clock.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>

namespace velt::demo {

struct PlantServerOptions {
    OpcServerOptions server;
    std::uint64_t seed = 1;
    std::chrono::milliseconds interval{1000};  ///< between two changes of a value
    /// For measuring: that many stations with so many numbers each, instead of the plant.
    std::size_t loadStations = 0;
    std::size_t loadVariables = 0;
    /// Where the runtime's downloads go; "": nowhere.
    std::filesystem::path downloadFolder;
    int downloadDays = 35;  ///< that a station's first download brings
};

/// The OPC UA server of the demo plant: its stations, and the server's own branch "PC_Server" with
/// the runtime in it. `clock` must outlive it.
[[nodiscard]] std::unique_ptr<OpcServer> startPlantServer(PlantServerOptions options, Clock& clock);

}  // namespace velt::demo
