// SPDX-License-Identifier: MIT
#include "adapters/access/conditions.h"

#include "tests/adapters/access/accessfile.h"

#include <gtest/gtest.h>

namespace velt::access {
namespace {

TEST(Conditions, OfDatesAndOfTexts) {
    const Date start = date("2006-03-14 07:30:00"), end = date("2006-04-18 07:30:00");
    const Date nearlyMidnight = date("2006-12-31 23:59:59.001");
    EXPECT_EQ(dateCondition("Data", start, end),
              "(Data >= #2006-03-14 07:30:00# AND Data <= #2006-04-18 07:30:00#)");
    EXPECT_EQ(dateCondition("Data", start, {}), "(Data >= #2006-03-14 07:30:00#)");
    EXPECT_EQ(dateCondition("Data", {}, {}), "");
    EXPECT_EQ(dateCondition("Data", nearlyMidnight, nearlyMidnight),
              "(Data >= #2006-12-31 23:59:59# AND Data <= #2007-01-01 00:00:00#)")
        << "milliseconds widen the range";
    EXPECT_TRUE(errorOf([] { (void)dateCondition("Data", Date(1e9), {}); }));
    EXPECT_EQ(fieldCondition("Allarme", "L'Aquila ''"), "Allarme = 'L''Aquila '''''");
}

}  // namespace
}  // namespace velt::access
