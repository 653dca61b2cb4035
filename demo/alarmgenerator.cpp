// SPDX-License-Identifier: MIT
#include "demo/alarmgenerator.h"

#include "demo/plant.h"

#include <algorithm>
#include <cmath>

namespace velt::demo {
namespace {

constexpr std::size_t MaxActive = 40;  // more open alarms than that and no plant would run

/// How lively the plant is at a time of day, 1 on average.
double activity(const Date& time) {
    constexpr double Pi = 3.14159265358979323846;
    const double day = time.serial() - std::floor(time.serial());
    return 1.0 - 0.6 * std::cos(2.0 * Pi * (day - 0.125));
}

}  // namespace

std::size_t AlarmGenerator::pick(std::size_t count) { return random_() % count; }

Alarm AlarmGenerator::row(const Date& time, const Active& alarm, const char* event) {
    const Station& station = Stations[alarm.station];
    const AlarmKind& kind = AlarmKinds[alarm.kind];
    return {time, std::string(station.name), std::string(kind.name),
            std::string(station.place) + ": " + std::string(kind.details[alarm.detail]), event};
}

Alarm AlarmGenerator::at(const Date& instant) {
    // The runtime logs whole seconds.
    const Date time = Date::fromMilliseconds(instant.milliseconds() / 1000 * 1000);
    const std::size_t dice = pick(3);
    if (dice == 0 || active_.size() >= MaxActive) {
        const auto open = std::ranges::find(active_, false, &Active::acknowledged);
        if (open != active_.end()) {
            open->acknowledged = true;
            return row(time, *open, "Riconosciuto");
        }
    }
    if ((dice == 1 || active_.size() >= MaxActive) && !active_.empty()) {
        const auto at = active_.begin() + static_cast<std::ptrdiff_t>(pick(active_.size()));
        const Active cleared = *at;
        active_.erase(at);
        return row(time, cleared, "Rientrato");
    }
    active_.push_back({pick(Stations.size()), pick(AlarmKinds.size()), pick(2), false});
    return row(time, active_.back(), "Attivo");
}

std::vector<Alarm> AlarmGenerator::history(const Date& start, const Date& end, int count) {
    std::vector<Alarm> alarms;
    alarms.reserve(static_cast<std::size_t>(count));
    const auto seconds = static_cast<double>(secondsBetween(start, end));
    const double meanGap = seconds / count;
    std::exponential_distribution<double> gap(1.0);
    for (Date time = start;;) {
        time = time.addSeconds(std::ceil(gap(random_) * meanGap / activity(time)));
        if (time > end) return alarms;
        alarms.push_back(at(time));
    }
}

}  // namespace velt::demo
