// SPDX-License-Identifier: MIT
#include "alarmviewer/querybuilder.h"

#include "tests/fakes/fakedatabase.h"
#include "tests/fakes/fakewidgets.h"

#include <gtest/gtest.h>

namespace velt {
namespace {

TEST(QueryBuilder, ComposesTheDataQuery) {
    fakes::FakeDatabase database;
    const Date start = Date::fromFields({2006, 3, 14, 7, 30, 0, 0});
    const std::string base = "SELECT Data, VRX, Allarme, Descrizione, Evento FROM Allarmi";
    const std::string order = " ORDER BY Data";
    const std::string d = database.DateCondition("Data", true, start, false, {});
    struct Case {
        AlarmFilter filter;
        std::string where;
    };
    const Case cases[] = {
        {{}, ""},
        {{.alarmEnabled = true, .alarm = "Pompa ferma", .stations = {"RTU01", "RTU07"}},
         " WHERE (Allarme is <Pompa ferma> AND ((VRX = 'RTU01') OR (VRX = 'RTU07')))"},
        {{.alarmEnabled = true, .alarm = "A"}, " WHERE (Allarme is <A>)"},
        {{.alarmEnabled = true, .alarm = ""}, ""},
        {{.alarmEnabled = false, .alarm = "A"}, ""},
        {{.startEnabled = true, .start = start}, " WHERE (" + d + ")"},
        {{.startEnabled = true, .start = start, .alarmEnabled = true, .alarm = "A"},
         " WHERE (" + d + " AND Allarme is <A>)"},
        {{.startEnabled = true, .start = start, .stations = {"X"}},
         " WHERE (" + d + " AND ((VRX = 'X')))"},
        // Quotes of a station name stay as they are.
        {{.stations = {"L'Aquila"}}, " WHERE (((VRX = 'L'Aquila')))"},
    };
    for (const Case& c : cases) EXPECT_EQ(ComponiSQL(c.filter, database), base + c.where + order);
}

TEST(QueryBuilder, TakesMarkedRowsInListOrder) {
    fakes::FakeListView view;
    EXPECT_EQ(CondizioneRTU("VRX", view), "");
    for (const char* name : {"RTU01", "RTU02", "RTU03"}) view.Add("", name);
    EXPECT_EQ(CondizioneRTU("VRX", view), "");
    view.Checked(3, true);
    view.Checked(1, true);
    EXPECT_EQ(CondizioneRTU("VRX", view), "((VRX = 'RTU01') OR (VRX = 'RTU03'))");

    fakes::FakeListBox box;
    EXPECT_EQ(CondizioneLista("VRX", box), "");
    box.rows = {{"a", true}, {"b", false}, {"c", true}};
    EXPECT_EQ(CondizioneLista("VRX", box), "((VRX = 'a') OR (VRX = 'c'))");
}

}  // namespace
}  // namespace velt
