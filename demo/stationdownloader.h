// SPDX-License-Identifier: MIT
#pragma once

#include "demo/downloader.h"
#include "demo/plantvariable.h"
#include "platform/clock.h"

#include <filesystem>
#include <future>
#include <map>
#include <string>
#include <vector>

namespace velt::demo {

/// Downloads into the stations' databases, "RTU01.MDB" and so on in one folder, on threads of its
/// own. Its end waits for those that run.
class StationDownloader final : public Downloader {
public:
    /// `clock` must outlive the object. A station's first download brings `days` days.
    StationDownloader(std::filesystem::path folder, std::vector<PlantStation> stations, int days,
                      Clock& clock);

    void start(const std::string& station) override;
    std::optional<std::string> outcome(const std::string& station) override;

    [[nodiscard]] static std::filesystem::path fileOf(const std::filesystem::path& folder,
                                                      const std::string& station);

private:
    const std::filesystem::path folder_;
    const std::vector<PlantStation> stations_;
    const int days_;
    Clock& clock_;
    std::map<std::string, std::future<std::string>> running_;  // last: they use all the others
};

}  // namespace velt::demo
