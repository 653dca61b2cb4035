// SPDX-License-Identifier: MIT
#include "demo/plantconfig.h"

#include "demo/stationdatabase.h"

#include <array>
#include <memory>

namespace velt::demo {
namespace {

/// "Pompe/Pompa 1" and "Corrente": "Corrente, Pompa 1".
std::string descriptionOf(const PlantVariable& trend) {
    if (trend.folder.empty()) return trend.name;
    return trend.name + ", " + std::string(trend.folder.substr(trend.folder.rfind('/') + 1));
}

}  // namespace

void writePlantConfig(SettingsFactory& settings, const std::filesystem::path& file,
                      const std::string& hostname, std::span<const PlantStation> stations) {
    const std::unique_ptr<Settings> ini = settings.create();
    ini->NomeFile(file.string());
    ini->Sezione("Common");
    ini->ScriviStringa("Hostname", hostname);
    ini->ScriviStringa("NumeroVRX", std::to_string(stations.size()));
    for (std::size_t n = 0; n < stations.size(); ++n)
        ini->ScriviStringa("VRX" + std::to_string(n), stations[n].name);
    for (std::size_t n = 0; n < stations.size(); ++n) {
        ini->Sezione("VRX" + std::to_string(n));
        std::array<int, 4> used{};
        for (const PlantVariable& trend : trendsOf(stations[n])) {
            const auto group = static_cast<std::size_t>(trend.trendGroup);
            const std::string key =
                "G" + std::to_string(group) + "V" + std::to_string(used.at(group)++);
            ini->ScriviStringa(key, std::string(trend.trend));
            ini->ScriviStringa(key + "_Desc", descriptionOf(trend));
            ini->ScriviStringa(key + "_UdM", std::string(trend.unit));
        }
    }
}

}  // namespace velt::demo
