// SPDX-License-Identifier: MIT
#include "alarmviewer/querybuilder.h"

#include "tests/fakes/fakedatabase.h"

#include <gtest/gtest.h>

namespace velt {
namespace {

TEST(QueryBuilder, ComposesTheDataQuery) {
    const std::pair<AlarmFilter, std::string> cases[] = {
        {{}, ""},
        {{.alarmEnabled = true, .alarm = "Pompa ferma", .stations = {"RTU01", "RTU07"}},
         " WHERE (Allarme is <Pompa ferma> AND ((VRX = 'RTU01') OR (VRX = 'RTU07')))"},
        {{.alarmEnabled = true, .alarm = ""}, ""},
        {{.startEnabled = true, .start = Date(2), .stations = {"X"}},
         " WHERE (Data in 172800..- AND ((VRX = 'X')))"},
        // Quotes of a station name stay as they are.
        {{.stations = {"L'Aquila"}}, " WHERE (((VRX = 'L'Aquila')))"},
    };
    fakes::FakeDatabase database;
    for (const auto& [filter, where] : cases)
        EXPECT_EQ(ComponiSQL(filter, database),
                  "SELECT Data, VRX, Allarme, Descrizione, Evento FROM Allarmi" + where +
                      " ORDER BY Data");
}

}  // namespace
}  // namespace velt
