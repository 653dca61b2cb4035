// SPDX-License-Identifier: MIT
#include "alarmviewer/intervallo.h"

#include "tests/fakes/fakeservices.h"

#include <gtest/gtest.h>

namespace velt {
namespace {

class IntervalloTest : public testing::Test {
protected:
    fakes::FakeSettingsFactory factory;
    const Date start = Date::fromFields({2006, 3, 14, 7, 30, 0, 0});
    const Date end = Date::fromFields({2006, 4, 18, 7, 30, 0, 0});
    bool isStart = true;
    bool isEnd = true;
    Date readStart;
    Date readEnd;
};

TEST_F(IntervalloTest, WritesItsBlockAndSelectsTheOldSectionAgain) {
    const auto settings = factory.create();
    settings->NomeFile("a.ini");
    settings->Sezione("Other");
    SalvaIntervallo(settings.get(), "Block", true, start, false, end);
    EXPECT_EQ(settings->Sezione(), "Other");
    EXPECT_EQ(factory.files["a.ini"]["Block"]["isStart"], "1");
    EXPECT_EQ(factory.files["a.ini"]["Block"]["isEnd"], "0");

    LeggiIntervallo(settings.get(), "Block", isStart, readStart, isEnd, readEnd);
    EXPECT_EQ(settings->Sezione(), "Other");
    EXPECT_TRUE(isStart);
    EXPECT_FALSE(isEnd);
    EXPECT_EQ(readStart, start);
    EXPECT_EQ(readEnd, end);
}

TEST_F(IntervalloTest, NoObjectOrNoFileMeansNoChange) {
    SalvaIntervallo(nullptr, "Block", true, start, true, end);
    LeggiIntervallo(nullptr, "Block", isStart, readStart, isEnd, readEnd);
    const auto settings = factory.create();
    SalvaIntervallo(settings.get(), "Block", true, start, true, end);
    LeggiIntervallo(settings.get(), "Block", isStart, readStart, isEnd, readEnd);
    EXPECT_TRUE(isStart && isEnd);
    EXPECT_EQ(readStart, Date());
    EXPECT_TRUE(factory.files.empty());
}

TEST_F(IntervalloTest, MissingKeysReadAsOffAndNow) {
    const auto settings = factory.create();
    settings->NomeFile("a.ini");
    LeggiIntervallo(settings.get(), "Block", isStart, readStart, isEnd, readEnd);
    EXPECT_FALSE(isStart || isEnd);
    EXPECT_EQ(readStart, factory.clock.present);
    EXPECT_EQ(readEnd, factory.clock.present);
}

}  // namespace
}  // namespace velt
