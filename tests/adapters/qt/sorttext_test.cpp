// SPDX-License-Identifier: MIT
#include "adapters/qt/sorttext.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace velt::qt {
namespace {

std::vector<std::string> sorted(std::vector<std::string> texts) {
    const SortText::Rules rules(Locale::italian());
    std::ranges::stable_sort(texts, {},
                             [&](const std::string& text) { return SortText(text, rules); });
    return texts;
}

TEST(SortTextTest, SortsAsAnOperatorExpects) {
    const std::vector<std::string> cases[] = {
        {"", "-3", "0", "9", "9,5", "10", "1.000", "1,5E+20", "Vero"},
        {"RTU1.Livello", "rtu2.livello", "RTU10.Livello", "Ümlaut", "zeta"},
        {"28/02/2006 23.59.59", "14/03/2006 07.00.00", "14/03/2006 18.00.00", "01/01/2007"},
        {"10", "12.5"},  // the second is a text, for the point is no decimal sign here
        {"Bad", "Good", "Quality N° 5", "Quality N° 65"}};
    for (const auto& expected : cases) {
        std::vector<std::string> mixed = expected;
        std::ranges::reverse(mixed);
        EXPECT_EQ(sorted(mixed), expected);
    }
}

}  // namespace
}  // namespace velt::qt
