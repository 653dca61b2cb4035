// SPDX-License-Identifier: MIT
#include "trendviewer/timeaxis.h"

#include "platform/date.h"

#include <gtest/gtest.h>

namespace velt {
namespace {

ChartTime at(const Date::Fields& fields) { return Date::fromFields(fields).milliseconds(); }

TEST(TimeAxisTest, HasALineForEachDivisionAndItsEnd) {
    const Locale italian;
    Locale american;
    american.dateOrder = Locale::DateOrder::MonthDayYear;
    american.timeSeparator = ':';
    struct Case {
        Date::Fields start;
        double seconds;
        int divisions;
        const Locale& locale;
        const char* labels;
    };
    const Case cases[] = {
        {{2006, 3, 14, 10}, 3600, 2, italian, "14/03/2006 10.00|14/03/2006 10.30|14/03/2006 11.00"},
        {{2008, 2, 29}, 86400, 1, italian, "29/02/2008 00.00|01/03/2008 00.00"},
        {{2006, 3, 14, 10}, 45, 1, italian, "14/03/2006 10.00.00|14/03/2006 10.00.45"},
        {{1899, 12, 29, 18}, 43200, 1, italian, "29/12/1899 18.00|30/12/1899 06.00"},
        {{2006, 3, 14, 10}, 60, 1, american, "03/14/2006 10:00|03/14/2006 10:01"},
        {{2006, 3, 14}, -3600, 0, italian, "14/03/2006 00.00|13/03/2006 23.00"},
        {{9999, 12, 31}, 86400, 1, italian, "31/12/9999 00.00|#2958466 00.00"},
    };
    for (const Case& c : cases) {
        ChartContents contents;
        contents.start = at(c.start);
        contents.end = contents.start + static_cast<ChartTime>(c.seconds * 1000);
        contents.divisions = c.divisions;
        std::string labels;
        for (const TimeTick& tick : timeAxis(contents, c.locale))
            labels += (labels.empty() ? "" : "|") + tick.day + " " + tick.clock;
        EXPECT_EQ(labels, c.labels);
    }
}

TEST(TimeAxisTest, MomentsAndLengthsInWords) {
    const Locale locale;
    EXPECT_EQ(timeText(at({2006, 3, 14, 7, 30, 5, 0}), locale), "14/03/2006 07.30.05");
    EXPECT_EQ(timeText(at({2006, 3, 14, 0, 0, 0, 40}), locale), "14/03/2006 00.00.00,040");
    EXPECT_EQ(timeText(at({1899, 12, 29, 23, 59, 59, 0}), locale), "29/12/1899 23.59.59");
    EXPECT_EQ(durationText(3'723'000, locale), "01.02.03");
    EXPECT_EQ(durationText(-(86'400'000LL * 3 + 500), locale), "-3 g 00.00.00,500");
}

}  // namespace
}  // namespace velt
