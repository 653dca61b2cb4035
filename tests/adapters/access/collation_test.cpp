// SPDX-License-Identifier: MIT
#include "adapters/access/collation.h"

#include <gtest/gtest.h>

#include <random>

namespace velt::access {
namespace {

int sign(int value) { return (value > 0) - (value < 0); }

TEST(Collation, EqualTexts) {
    const std::pair<const char*, const char*> cases[] = {
        {"RTU01", "rtu01"}, {"RTU01", "RTU01   "}, {"", "   "}, {"Città", "CITTÀ "},
        {"È", "è"},         {"e\u0300", "è"},
    };
    for (const auto& [a, b] : cases) EXPECT_EQ(compareText(a, b), 0) << a << " | " << b;
}

TEST(Collation, AscendingTexts) {
    // Letters first, then accents: the accent only decides between otherwise equal texts.
    const char* const ascending[] = {
        "",       " a",    "(a)",   "1",       "10",    "2",     "a b",    "A1",
        "A2",     "ab",    "Città", "città 2", "cittb", "cote",  "coté",   "côte rossa",
        "coteau", "RTU 1", "RTU01", "rtu02",   "RTU10", "zebra", "\u03B1",
    };
    for (std::size_t i = 1; i < std::size(ascending); ++i) {
        EXPECT_LT(compareText(ascending[i - 1], ascending[i]), 0)
            << ascending[i - 1] << " | " << ascending[i];
        EXPECT_GT(compareText(ascending[i], ascending[i - 1]), 0)
            << ascending[i - 1] << " | " << ascending[i];
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
        const std::string a = text();
        const std::string b = text();
        ASSERT_EQ(sign(compareText(a, b)), sign(compareText(a + weightless, b + weightless)))
            << a << " | " << b;
    }
}

TEST(Collation, InvalidUtf8AndControlCharactersDoNoHarm) {
    EXPECT_NE(compareText("a\xFF", "a"), 0);
    EXPECT_EQ(compareText("\xC3", "\xFF"), 0) << "both read U+FFFD";
    EXPECT_EQ(compareText(std::string("a\0b", 3), "ab"), 0) << "weighs nothing";
}

}  // namespace
}  // namespace velt::access
