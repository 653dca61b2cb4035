// SPDX-License-Identifier: MIT
#include "connviewer/rtuconfig.h"

#include <algorithm>
#include <utility>

namespace velt {
namespace {

constexpr const char* Common = "Common";
constexpr const char* Separators = "\\/";

/// Without a trailing separator, but for a root, which is one.
std::string parentFolder(const std::string& path) {
    constexpr auto None = std::string::npos;
    const bool hasDrive = path.size() > 1 && path[1] == ':';
    const std::size_t rootEnd = hasDrive ? 2 : 0;  // where the separator of a root stands

    const std::size_t nameEnd = path.find_last_not_of(Separators);
    if (nameEnd == None || nameEnd < rootEnd) return "";  // a root has no parent
    const std::size_t separator = path.find_last_of(Separators, nameEnd);
    if (separator == None) return path.substr(0, rootEnd);
    const std::size_t folderEnd = path.find_last_not_of(Separators, separator);
    if (folderEnd == None || folderEnd < rootEnd) return path.substr(0, rootEnd + 1);
    return path.substr(0, folderEnd + 1);
}

}  // namespace

RtuConfig::RtuConfig(SettingsFactory& settings, const std::string& file)
    : settings_(settings.create()) {
    settings_->NomeFile(file);
}

std::string RtuConfig::Hostname() {
    settings_->Sezione(Common);
    return settings_->LeggiStringa("Hostname", "");
}

std::int16_t RtuConfig::NumeroVRX() {
    settings_->Sezione(Common);
    return std::max(settings_->LeggiIntero("NumeroVRX", 0), std::int16_t{0});
}

std::vector<std::string> RtuConfig::stations() {
    std::vector<std::string> names;
    const int count = NumeroVRX();
    for (int n = 0; n < count; ++n) {
        std::string name = settings_->LeggiStringa("VRX" + std::to_string(n), "");
        if (!name.empty()) names.push_back(std::move(name));
    }
    return names;
}

std::vector<ConfiguredTrend> RtuConfig::trends(int section) {
    settings_->Sezione("VRX" + std::to_string(section));
    std::vector<ConfiguredTrend> trends;
    for (int group = 0; group < Groups; ++group) {
        for (int i = 0; i < TrendsPerGroup; ++i) {
            const std::string key = "G" + std::to_string(group) + "V" + std::to_string(i);
            std::string name = settings_->LeggiStringa(key, "");
            if (name.empty()) continue;
            trends.push_back({.Nome = std::move(name),
                              .Descrizione = settings_->LeggiStringa(key + "_Desc", ""),
                              .UdM = settings_->LeggiStringa(key + "_UdM", "")});
        }
    }
    return trends;
}

std::string CartellaDownload(const std::string& file) {
    return file.empty() ? "" : parentFolder(file) + "\\";
}

}  // namespace velt
