// SPDX-License-Identifier: MIT
#pragma once

#include "platform/export.h"
#include "platform/settings.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace velt {

/// A trend of a station as the configuration names it.
struct ConfiguredTrend {
    std::string Nome;  ///< also the table in the station's database
    std::string Descrizione;
    std::string UdM;  ///< unit of measure
    friend bool operator==(const ConfiguredTrend&, const ConfiguredTrend&) = default;
};

/// The configuration file "VeltRTU.ini" of the plant, read through a settings object of its own:
/// one reader serves one look at the file. What is missing reads as its default, never as an error.
class VELT_API RtuConfig {
public:
    /// Groups of trends in a station's section, and trends in a group.
    static constexpr int Groups = 4;
    static constexpr int TrendsPerGroup = 20;

    RtuConfig(SettingsFactory& settings, const std::string& file);

    /// Host name or address of the runtime; "" when there is none.
    [[nodiscard]] std::string Hostname();
    /// How many numbered station keys there are. A count that is negative, unreadable or beyond 16
    /// bits counts as 0.
    [[nodiscard]] std::int16_t NumeroVRX();
    /// Names of the stations in the order of their numbers, empty ones left out.
    [[nodiscard]] std::vector<std::string> stations();
    /// Trends in the section "VRX" + `section`, group after group.
    [[nodiscard]] std::vector<ConfiguredTrend> trends(int section);

private:
    std::unique_ptr<Settings> settings_;
};

/// Folder of the station databases: the parent folder of the configuration file (both "\" and "/"
/// separate) and one "\". So the separator is doubled for a file in a root, and stands alone for a
/// file without a folder; "" for no file.
[[nodiscard]] VELT_API std::string CartellaDownload(const std::string& file);

}  // namespace velt
