// SPDX-License-Identifier: MIT
#include "trendviewer/timeaxis.h"

#include "platform/date.h"

#include <gtest/gtest.h>

namespace velt {
namespace {

ChartTime at(const Date::Fields& fields) { return Date::fromFields(fields).milliseconds(); }

std::vector<std::string> texts(ChartTime start, double seconds, int divisions,
                               const Locale& locale = Locale::italian()) {
    ChartContents contents;
    contents.start = start;
    contents.end = start + static_cast<ChartTime>(seconds * 1000);
    contents.divisions = divisions;
    std::vector<std::string> result;
    for (const TimeTick& tick : timeAxis(contents, locale))
        result.push_back(tick.day + " " + tick.clock);
    return result;
}

TEST(TimeAxisTest, HasALineForEachDivisionAndItsEnd) {
    using Texts = std::vector<std::string>;
    EXPECT_EQ(texts(at({2006, 3, 14, 10}), 3600, 4),
              (Texts{"14/03/2006 10.00", "14/03/2006 10.15", "14/03/2006 10.30", "14/03/2006 10.45",
                     "14/03/2006 11.00"}));
    EXPECT_EQ(texts(at({2008, 2, 28}), 2 * 86400, 2),
              (Texts{"28/02/2008 00.00", "29/02/2008 00.00", "01/03/2008 00.00"}))
        << "a leap day";
    EXPECT_EQ(texts(at({2006, 3, 14, 10}), 90, 2),
              (Texts{"14/03/2006 10.00.00", "14/03/2006 10.00.45", "14/03/2006 10.01.30"}))
        << "seconds where they are needed";
    EXPECT_EQ(texts(at({1899, 12, 29, 18}), 86400, 2),
              (Texts{"29/12/1899 18.00", "30/12/1899 06.00", "30/12/1899 18.00"}));
    Locale american;
    american.dateOrder = Locale::DateOrder::MonthDayYear;
    american.timeSeparator = ':';
    EXPECT_EQ(texts(at({2006, 3, 14, 10}), 60, 1, american),
              (Texts{"03/14/2006 10:00", "03/14/2006 10:01"}));
}

TEST(TimeAxisTest, AnEmptyOrEndlessWindowIsNoFault) {
    EXPECT_EQ(texts(at({2006, 3, 14}), 0, 4).size(), 5u);
    EXPECT_EQ(texts(at({2006, 3, 14}), -3600, 0).size(), 2u);
    EXPECT_EQ(texts(at({9999, 12, 31}), 86400.0 * 400, 4).size(), 5u);
}

TEST(TimeAxisTest, MomentsAndLengthsInWords) {
    const Locale locale;
    EXPECT_EQ(timeText(at({2006, 3, 14, 7, 30, 5, 0}), locale), "14/03/2006 07.30.05");
    EXPECT_EQ(timeText(at({2006, 3, 14, 0, 0, 0, 40}), locale), "14/03/2006 00.00.00,040");
    EXPECT_EQ(timeText(at({1899, 12, 29, 23, 59, 59, 0}), locale), "29/12/1899 23.59.59");
    EXPECT_EQ(durationText(0, locale), "00.00.00");
    EXPECT_EQ(durationText(3'723'000, locale), "01.02.03");
    EXPECT_EQ(durationText(-(86'400'000LL * 3 + 500), locale), "-3 g 00.00.00,500");
}

}  // namespace
}  // namespace velt
