// SPDX-License-Identifier: MIT
#include "demo/alarmgenerator.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>

namespace velt::demo {
namespace {

const Date End = Date::fromFields({2026, 1, 31, 12, 0, 0, 0});
const Date Start = End.addSeconds(-90 * 86400.0);

TEST(AlarmGenerator, MakesAPlausibleHistory) {
    const auto alarms = AlarmGenerator(1).history(Start, End, 20000);
    EXPECT_NEAR(static_cast<double>(alarms.size()), 20000, 1500);
    EXPECT_TRUE(std::ranges::is_sorted(alarms, {}, [](const Alarm& a) { return a.time.serial(); }));
    EXPECT_GT(alarms.front().time, Start);
    EXPECT_LE(alarms.back().time, End);

    std::set<std::string> stations, names, descriptions;
    std::map<std::string, int> open;  // raised and not yet cleared, by alarm
    int byDay = 0;
    for (const Alarm& alarm : alarms) {
        stations.insert(alarm.station);
        names.insert(alarm.name);
        descriptions.insert(alarm.description);
        int& count = open[alarm.station + alarm.name + alarm.description];
        if (alarm.event == "Attivo")
            ++count;
        else
            ASSERT_GT(count, 0) << alarm.event << " without an alarm";
        if (alarm.event == "Rientrato") --count;
        const int hour = alarm.time.fields().hour;
        byDay += hour >= 9 && hour < 21 ? 1 : 0;
    }
    EXPECT_EQ(stations.size(), 8u);
    EXPECT_EQ(names.size(), 25u);
    EXPECT_EQ(descriptions.size(), 400u);
    EXPECT_GT(byDay, 20000 * 6 / 10);
}

TEST(AlarmGenerator, IsTheSameForTheSameSeed) {
    const auto first = AlarmGenerator(7).history(Start, End, 500);
    EXPECT_EQ(first, AlarmGenerator(7).history(Start, End, 500));
    EXPECT_NE(first, AlarmGenerator(8).history(Start, End, 500));
}

}  // namespace
}  // namespace velt::demo
