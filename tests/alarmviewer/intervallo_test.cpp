// SPDX-License-Identifier: MIT
#include "alarmviewer/intervallo.h"

#include "tests/fakes/fakeservices.h"

#include <gtest/gtest.h>

namespace velt {
namespace {

TEST(IntervalloTest, ReadsItsBlockAndSelectsTheOldSectionAgain) {
    const Date start = Date::fromFields({2006, 3, 14, 7, 30, 0, 0});
    const Date end = Date::fromFields({2006, 4, 18, 7, 30, 0, 0});
    bool isStart = true;
    bool isEnd = true;
    Date readStart;
    Date readEnd;
    fakes::FakeSettingsFactory factory;
    const auto settings = factory.create();
    for (Settings* none : {static_cast<Settings*>(nullptr), settings.get()}) {
        SalvaIntervallo(none, "Block", true, start, true, end);
        LeggiIntervallo(none, "Block", isStart, readStart, isEnd, readEnd);
        EXPECT_TRUE(isStart && isEnd) << "without an object or a file nothing changes";
        EXPECT_EQ(readStart, Date());
    }

    settings->NomeFile("a.ini");
    settings->Sezione("Other");
    LeggiIntervallo(settings.get(), "Block", isStart, readStart, isEnd, readEnd);
    EXPECT_FALSE(isStart || isEnd);
    EXPECT_EQ(readEnd, factory.clock.present) << "missing keys read as off and now";

    SalvaIntervallo(settings.get(), "Block", true, start, false, end);
    EXPECT_EQ(settings->Sezione(), "Other");
    LeggiIntervallo(settings.get(), "Block", isStart, readStart, isEnd, readEnd);
    EXPECT_EQ(settings->Sezione(), "Other");
    EXPECT_TRUE(isStart && !isEnd);
    EXPECT_EQ(readStart, start);
    EXPECT_EQ(readEnd, end);
}

}  // namespace
}  // namespace velt
