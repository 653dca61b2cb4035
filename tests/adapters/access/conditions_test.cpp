// SPDX-License-Identifier: MIT
#include "adapters/access/conditions.h"

#include "platform/runtimeerror.h"

#include <gtest/gtest.h>

namespace velt::access {
namespace {

constexpr Date::Fields Start{2006, 3, 14, 7, 30, 0, 0};
constexpr Date::Fields End{2006, 4, 18, 7, 30, 0, 0};

TEST(Conditions, OfDates) {
    const Date start = Date::fromFields(Start);
    const Date end = Date::fromFields(End);
    EXPECT_EQ(dateCondition("Data", start, end),
              "(Data >= #2006-03-14 07:30:00# AND Data <= #2006-04-18 07:30:00#)");
    EXPECT_EQ(dateCondition("Data", start, std::nullopt), "(Data >= #2006-03-14 07:30:00#)");
    EXPECT_EQ(dateCondition("Data", std::nullopt, end), "(Data <= #2006-04-18 07:30:00#)");
    EXPECT_EQ(dateCondition("Data", std::nullopt, std::nullopt), "");
}

TEST(Conditions, MillisecondsWidenTheRange) {
    Date::Fields nearlyMidnight{2006, 12, 31, 23, 59, 59, 1};
    const Date bound = Date::fromFields(nearlyMidnight);
    EXPECT_EQ(dateCondition("Data", bound, bound),
              "(Data >= #2006-12-31 23:59:59# AND Data <= #2007-01-01 00:00:00#)");
}

TEST(Conditions, OfDatesBeyondTheCalendar) {
    const Date early = Date::fromFields({100, 1, 1, 0, 0, 0, 0});
    EXPECT_EQ(dateCondition("Data", early, std::nullopt), "(Data >= #0100-01-01 00:00:00#)");
    EXPECT_THROW(static_cast<void>(dateCondition("Data", Date(1e9), std::nullopt)), RuntimeError);
}

TEST(Conditions, OfTextsDoubleTheQuotes) {
    EXPECT_EQ(fieldCondition("Allarme", "Livello alto"), "Allarme = 'Livello alto'");
    EXPECT_EQ(fieldCondition("Allarme", "L'Aquila ''"), "Allarme = 'L''Aquila '''''");
    EXPECT_EQ(fieldCondition("Allarme", ""), "Allarme = ''");
}

}  // namespace
}  // namespace velt::access
