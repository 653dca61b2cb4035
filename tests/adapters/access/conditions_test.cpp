// SPDX-License-Identifier: MIT
#include "adapters/access/conditions.h"

#include "tests/errorof.h"

#include <gtest/gtest.h>

namespace velt::access {
namespace {

TEST(Conditions, OfDates) {
    using Bound = std::optional<Date>;
    const Date start = Date::fromFields({2006, 3, 14, 7, 30, 0, 0});
    const Date end = Date::fromFields({2006, 4, 18, 7, 30, 0, 0});
    const Date nearlyMidnight = Date::fromFields({2006, 12, 31, 23, 59, 59, 1});
    const std::tuple<Bound, Bound, const char*> cases[] = {
        {start, end, "(Data >= #2006-03-14 07:30:00# AND Data <= #2006-04-18 07:30:00#)"},
        {start, {}, "(Data >= #2006-03-14 07:30:00#)"},
        {{}, {}, ""},
        // Milliseconds widen the range.
        {nearlyMidnight, nearlyMidnight,
         "(Data >= #2006-12-31 23:59:59# AND Data <= #2007-01-01 00:00:00#)"},
    };
    for (const auto& [from, to, condition] : cases)
        EXPECT_EQ(dateCondition("Data", from, to), condition);
    EXPECT_TRUE(errorOf([] { static_cast<void>(dateCondition("Data", Date(1e9), {})); }));
}

TEST(Conditions, OfTextsDoubleTheQuotes) {
    EXPECT_EQ(fieldCondition("Allarme", "L'Aquila ''"), "Allarme = 'L''Aquila '''''");
}

}  // namespace
}  // namespace velt::access
