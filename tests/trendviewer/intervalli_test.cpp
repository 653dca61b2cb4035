// SPDX-License-Identifier: MIT
#include "trendviewer/intervalli.h"

#include <gtest/gtest.h>

#include <string>

namespace velt {
namespace {

TEST(IntervalliTest, LengthsAndDivisionsGoByThePosition) {
    std::string table;
    for (const int i : {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, -1, -32768, 32767}) {
        if (i >= 0 && i < static_cast<int>(testiIntervallo().size()))
            table += testiIntervallo()[static_cast<std::size_t>(i)];
        const auto index = static_cast<std::int16_t>(i);
        table += " " + std::to_string(SecondiIntervallo(index)) + " " +
                 std::to_string(DivisioniIntervallo(index)) + "|";
    }
    EXPECT_EQ(table,
              "1 Ora 3600 4|2 Ore 7200 4|3 Ore 10800 6|4 Ore 14400 4|6 Ore 21600 6|"
              "12 Ore 43200 6|1 Giorno 86400 6|2 Giorni 172800 4|4 Giorni 345600 4|"
              "1 Settimana 604800 7|1 Mese 3024000 5|2 Mesi 5443200 9|3 Mesi 7948800 6|"
              " 3600 4| 3600 4| 3600 4| 3600 4|");
}

}  // namespace
}  // namespace velt
