// SPDX-License-Identifier: MIT
#include "alarmviewer/querybuilder.h"

#include "tests/fakes/fakedatabase.h"

#include <gtest/gtest.h>

namespace velt {
namespace {

TEST(QueryBuilder, ComposesTheDataQuery) {
    fakes::FakeDatabase database;
    const Date start = Date::fromFields({2006, 3, 14, 7, 30, 0, 0});
    const std::string base = "SELECT Data, VRX, Allarme, Descrizione, Evento FROM Allarmi";
    const std::string d = database.DateCondition("Data", true, start, false, {});
    const std::pair<AlarmFilter, std::string> cases[] = {
        {{}, ""},
        {{.alarmEnabled = true, .alarm = "Pompa ferma", .stations = {"RTU01", "RTU07"}},
         " WHERE (Allarme is <Pompa ferma> AND ((VRX = 'RTU01') OR (VRX = 'RTU07')))"},
        {{.alarmEnabled = true, .alarm = ""}, ""},
        {{.startEnabled = true, .start = start, .stations = {"X"}},
         " WHERE (" + d + " AND ((VRX = 'X')))"},
        // Quotes of a station name stay as they are.
        {{.stations = {"L'Aquila"}}, " WHERE (((VRX = 'L'Aquila')))"},
    };
    for (const auto& [filter, where] : cases)
        EXPECT_EQ(ComponiSQL(filter, database), base + where + " ORDER BY Data");
}

}  // namespace
}  // namespace velt
