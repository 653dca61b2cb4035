// SPDX-License-Identifier: MIT
#include "demo/stationdownloader.h"

#include "demo/stationdatabase.h"
#include "platform/runtimeerror.h"

#include <algorithm>
#include <utility>

namespace velt::demo {

StationDownloader::StationDownloader(std::filesystem::path folder,
                                     std::vector<PlantStation> stations, int days, Clock& clock)
    : folder_(std::move(folder)), stations_(std::move(stations)), days_(days), clock_(clock) {}

std::filesystem::path StationDownloader::fileOf(const std::filesystem::path& folder,
                                                const std::string& station) {
    return folder / (station + ".MDB");
}

void StationDownloader::start(const std::string& station) {
    const auto known = std::ranges::find(stations_, station, &PlantStation::name);
    if (known == stations_.end()) return;
    running_[station] = std::async(std::launch::async, [this, &found = *known, now = clock_.now()] {
        try {
            updateStationDatabase(fileOf(folder_, found.name), found, now, days_);
            return std::string();
        } catch (const RuntimeError& error) {
            return error.Description();
        }
    });
}

std::optional<std::string> StationDownloader::outcome(const std::string& station) {
    const auto running = running_.find(station);
    if (running == running_.end()) return "stazione senza variabili";
    if (running->second.wait_for(std::chrono::seconds(0)) != std::future_status::ready)
        return std::nullopt;
    std::string result = running->second.get();
    running_.erase(running);
    return result;
}

}  // namespace velt::demo
