// SPDX-License-Identifier: MIT
#include "adapters/access/collation.h"

#include <gtest/gtest.h>

#include <random>

namespace velt::access {
namespace {

int sign(int value) { return (value > 0) - (value < 0); }

TEST(Collation, ComparesLettersThenAccentsAndNothingElse) {
    const std::pair<std::string, std::string> equal[] = {{"RTU01", "rtu01   "}, {"", "   "},
                                                         {"Città", "CITTÀ "},   {"e\u0300", "è"},
                                                         {"\xC3", "\xFF"},  // both read U+FFFD
                                                         {{"a\0b", 3}, "ab"}};
    for (const auto& [a, b] : equal) EXPECT_EQ(compareText(a, b), 0) << a << " | " << b;
    EXPECT_NE(compareText("a\xFF", "a"), 0);
    // The accent only decides between otherwise equal texts.
    const char* const ascending[] = {
        "",       " a",    "(a)",   "1",       "10",    "2",     "a b",    "A1",
        "A2",     "ab",    "Città", "città 2", "cittb", "cote",  "coté",   "côte rossa",
        "coteau", "RTU 1", "RTU01", "rtu02",   "RTU10", "zebra", "\u03B1",
    };
    for (std::size_t i = 1; i < std::size(ascending); ++i) {
        const auto *a = ascending[i - 1], *b = ascending[i];
        EXPECT_TRUE(compareText(a, b) < 0 && compareText(b, a) > 0) << a << " | " << b;
    }
}

TEST(Collation, ShortcutForAsciiGivesTheSameOrder) {
    // A character that weighs nothing sends the same text the long way.
    const std::string weightless = "\u200D";
    std::mt19937 random(4);  // NOLINT(cert-msc51-cpp): the same texts in every run
    const auto text = [&random] {
        std::string result;
        for (auto length = random() % 6; length > 0; --length)
            result += static_cast<char>(' ' + static_cast<int>(random() % 95));
        return result + "x";
    };
    for (int i = 0; i < 20'000; ++i) {
        const std::string a = text(), b = text();
        ASSERT_EQ(sign(compareText(a, b)), sign(compareText(a + weightless, b + weightless)))
            << a << " | " << b;
    }
}

}  // namespace
}  // namespace velt::access
