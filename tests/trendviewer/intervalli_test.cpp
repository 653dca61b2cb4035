// SPDX-License-Identifier: MIT
#include "trendviewer/intervalli.h"

#include <gtest/gtest.h>

namespace velt {
namespace {

TEST(IntervalliTest, LengthsAndDivisionsGoByThePosition) {
    struct Case {
        const char* text;
        std::int32_t seconds;
        std::int16_t divisions;
    };
    const Case cases[] = {
        {"1 Ora", 3600, 4},         {"2 Ore", 7200, 4},      {"3 Ore", 10800, 6},
        {"4 Ore", 14400, 4},        {"6 Ore", 21600, 6},     {"12 Ore", 43200, 6},
        {"1 Giorno", 86400, 6},     {"2 Giorni", 172800, 4}, {"4 Giorni", 345600, 4},
        {"1 Settimana", 604800, 7}, {"1 Mese", 3024000, 5},  {"2 Mesi", 5443200, 9},
        {"3 Mesi", 7948800, 6}};
    ASSERT_EQ(testiIntervallo().size(), std::size(cases));
    for (std::int16_t i = 0; i < 13; ++i) {
        const Case& c = cases[i];
        EXPECT_STREQ(testiIntervallo()[static_cast<std::size_t>(i)], c.text);
        EXPECT_EQ(SecondiIntervallo(i), c.seconds) << c.text;
        EXPECT_EQ(DivisioniIntervallo(i), c.divisions) << c.text;
    }
    for (const int beyond : {-32768, -1, 13, 32767}) {
        EXPECT_EQ(SecondiIntervallo(static_cast<std::int16_t>(beyond)), 3600);
        EXPECT_EQ(DivisioniIntervallo(static_cast<std::int16_t>(beyond)), 4);
    }
}

}  // namespace
}  // namespace velt
