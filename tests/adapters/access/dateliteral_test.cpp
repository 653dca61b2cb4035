// SPDX-License-Identifier: MIT
#include "adapters/access/dateliteral.h"

#include "platform/isodate.h"

#include <gtest/gtest.h>

namespace velt::access {
namespace {

TEST(DateLiteral, FormsAreRead) {
    const std::pair<const char*, const char*> cases[] = {
        {"2006-3-4 7:05", "2006-03-04 07:05:00"},
        {" 2006-03-14   07:30:15 ", "2006-03-14 07:30:15"},
        {"3/4/2006", "2006-03-04 00:00:00"},  // the month first, in every locale
        {"12/31/2006 23:59:59", "2006-12-31 23:59:59"},
        {"3/14/29", "2029-03-14 00:00:00"},
        {"3/14/30", "1930-03-14 00:00:00"},
        {"3/14/2006 7:30 PM", "2006-03-14 19:30:00"},
        {"3/14/2006 12:00:00 am", "2006-03-14 00:00:00"},
        {"3/14/2006 12:30pm", "2006-03-14 12:30:00"},
        {"07:30", "1899-12-30 07:30:00"},
        {"0100-01-01", "0100-01-01 00:00:00"},
        {"9999-12-31", "9999-12-31 00:00:00"},
        {"2008-02-29", "2008-02-29 00:00:00"},
    };
    for (const auto& [literal, expected] : cases) {
        const std::optional<Date> date = parseDateLiteral(literal);
        ASSERT_TRUE(date) << literal;
        EXPECT_EQ(isoText(*date), expected) << literal;
    }
}

TEST(DateLiteral, MalformedAndImpossibleOnesAreRefused) {
    const char* const literals[] = {
        "",
        "06-03-14",
        "3/14/206",
        "07:30 07:30",
        "2006-03-14x",
        "2006-03-14T07:30",
        "2006-03-14 07:30:15.5",
        "3/14/2006 13:00 PM",
        "3/14/2006 0:30 AM",
        "3/14/2006 7:30 XM",
        "2006-02-29",
        "31/12/2006",
        "2006-03-14 24:00",
        "2006-03-14 07:60",
        "99999999999999999999-01-01",
    };
    for (const char* literal : literals) EXPECT_FALSE(parseDateLiteral(literal)) << literal;
}

}  // namespace
}  // namespace velt::access
