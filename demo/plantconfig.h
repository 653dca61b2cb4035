// SPDX-License-Identifier: MIT
#pragma once

#include "demo/plantvariable.h"
#include "platform/settings.h"

#include <filesystem>
#include <span>
#include <string>

namespace velt::demo {

/// Writes the plant's configuration file "VeltRTU.ini": where its runtime is, the stations, and
/// their trends with descriptions and units of measure. What else stands in the file stays.
void writePlantConfig(SettingsFactory& settings, const std::filesystem::path& file,
                      const std::string& hostname, std::span<const PlantStation> stations);

}  // namespace velt::demo
