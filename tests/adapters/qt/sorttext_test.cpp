// SPDX-License-Identifier: MIT
#include "adapters/qt/sorttext.h"

#include <gmock/gmock.h>

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
        {"1.2.3", "12.5", "(1; 2)", "+", "Bad", "Good", "Quality N° 5", "Quality N° 65"}};
    for (const auto& expected : cases) {
        std::vector<std::string> mixed = expected;
        // What is no number, like "12.5", has its place among the texts.
        std::ranges::reverse(mixed);
        const std::vector<std::string> result = sorted(mixed);
        if (&expected == std::end(cases) - 1)
            EXPECT_THAT(result, testing::UnorderedElementsAreArray(expected));
        else
            EXPECT_EQ(result, expected);
    }
    EXPECT_LT(SortText("10", SortText::Rules(Locale::italian())),
              SortText("12.5", SortText::Rules(Locale::italian())))
        << "a text, for the point is no decimal sign here";
}

TEST(SortTextTest, TextsThatMeanTheSameAreEqual) {
    const SortText::Rules rules(Locale::italian());
    EXPECT_EQ(SortText("good", rules), SortText("Good", rules));
    EXPECT_EQ(SortText("1,50", rules), SortText("1,5", rules));
}

}  // namespace
}  // namespace velt::qt
