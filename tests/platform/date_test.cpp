// SPDX-License-Identifier: MIT
#include "platform/date.h"

#include "platform/runtimeerror.h"

#include <gtest/gtest.h>

#include <limits>

namespace velt {
namespace {

TEST(DateTest, FieldsAndSerialAgree) {
    const std::pair<Date::Fields, double> cases[] = {
        {{1899, 12, 30}, 0.0},       {{1899, 12, 31, 12}, 1.5},   {{2006, 3, 14, 18}, 38790.75},
        {{1900, 3, 1}, 61.0},        {{2000, 2, 29}, 36585.0},    {{1899, 12, 29}, -1.0},
        {{1899, 12, 29, 6}, -1.25},  {{1899, 12, 28, 18}, -2.75}, {{100, 1, 1}, -657434.0},
        {{9999, 12, 31}, 2958465.0},
    };
    for (const auto& [fields, serial] : cases) {
        EXPECT_DOUBLE_EQ(Date::fromFields(fields).serial(), serial);
        EXPECT_EQ(Date(serial).fields(), fields) << serial;
    }
    for (const int year : {1850, 1899, 2006, 9999}) {
        const std::int64_t day = Date::fromFields({year, 12, 29}).milliseconds();
        for (std::int64_t ms = 0; ms < 86'400'000; ms += 997)
            ASSERT_EQ(Date::fromMilliseconds(day + ms).milliseconds(), day + ms) << year;
    }
}

TEST(DateTest, MovesInTimeAndOrdersByIt) {
    const Date ten = Date::fromFields({2006, 3, 14, 10});
    Date moved = ten;
    for (int quarter = 0; quarter < 96; ++quarter) moved = moved.addSeconds(900);
    EXPECT_EQ(moved.fields(), (Date::Fields{2006, 3, 15, 10}));
    EXPECT_EQ(ten.addSeconds(-0.5).fields(), (Date::Fields{2006, 3, 14, 9, 59, 59, 500}));
    // Across the day before which the stored fraction turns round.
    EXPECT_EQ(Date(0.25).addSeconds(-86400).serial(), -1.25);
    EXPECT_EQ(Date(-1.25).withTime(23, 59).fields(), (Date::Fields{1899, 12, 29, 23, 59}));
    EXPECT_LT(Date(-1.25), Date(-1.5)) << "06:00 before 12:00 of the same day";
    EXPECT_LT(Date(-2.0), Date(-1.75));
    EXPECT_EQ(Date(-0.25), Date(0.25)) << "both are 06:00 of day zero";
}

TEST(DateTest, RefusesWhatIsNoDate) {
    const Date::Fields bad[] = {{2006, 2, 29},       {2006, 13, 1}, {2006, 1, 1, 24},
                                {2006, 1, 1, 0, -1}, {99, 1, 1},    {10000, 1, 1}};
    for (const auto& fields : bad) EXPECT_THROW((void)Date::fromFields(fields), RuntimeError);
    for (const double serial :
         {std::numeric_limits<double>::quiet_NaN(), 1e300, -1e300, 2958466.0}) {
        EXPECT_FALSE(Date(serial).isValid());
        EXPECT_THROW((void)Date(serial).fields(), RuntimeError);
    }
    EXPECT_THROW((void)Date(1.0).addSeconds(1e300), RuntimeError);
}

}  // namespace
}  // namespace velt
