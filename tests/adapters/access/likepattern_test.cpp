// SPDX-License-Identifier: MIT
#include "adapters/access/likepattern.h"

#include "tests/errorof.h"

#include <gtest/gtest.h>

namespace velt::access {
namespace {

TEST(LikePattern, Matches) {
    const std::pair<const char*, const char*> cases[] = {
        {"", ""},           {"*", ""},        {"*", "abc"},       {"abc", "ABC"},
        {"a*", "A"},        {"*c", "abc"},    {"*b*", "abc"},     {"a*b*c", "aXbYbZc"},
        {"**", "x"},        {"?", "à"},       {"citt?", "CITTÀ"}, {"CITTÀ", "città"},
        {"RTU##", "rtu07"}, {"[a-c]x", "Bx"}, {"[!a-c]x", "dx"},  {"[*]", "*"},
        {"[?]a", "?a"},     {"[#]", "#"},     {"a[[]b", "a[b"},   {"[a-]", "-"},
        {"[x-zà]", "À"},    {"100%", "100%"}, {"a_b", "a_b"},     {"*[!0-9]", "12a"},
        {"a\nb", "A\nB"},
    };
    for (const auto& [pattern, text] : cases)
        EXPECT_TRUE(LikePattern(pattern).matches(text)) << pattern << " | " << text;
}

TEST(LikePattern, DoesNotMatch) {
    const std::pair<const char*, const char*> cases[] = {
        {"", "a"},         {"?", ""},          {"a", ""},          {"a*c", "ab"},   {"*b", "abc"},
        {"RTU##", "RTU1"}, {"RTU##", "RTU1a"}, {"[a-c]", "d"},     {"[!a-c]", "B"}, {"[!a]", ""},
        {"[]", ""},        {"[]", "a"},        {"citta", "città"}, {"a%", "abc"},   {"a_c", "abc"},
        {"abc ", "abc"},   {"??", "à"},
    };
    for (const auto& [pattern, text] : cases)
        EXPECT_FALSE(LikePattern(pattern).matches(text)) << pattern << " | " << text;
}

TEST(LikePattern, ManyStarsStayCheap) {
    std::string pattern;
    for (int i = 0; i < 300; ++i) pattern += "*a";
    EXPECT_FALSE(LikePattern(pattern + "b").matches(std::string(20'000, 'a')));
    EXPECT_TRUE(LikePattern(pattern).matches(std::string(20'000, 'a')));
}

TEST(LikePattern, MalformedOnesAreRefused) {
    for (const std::string& pattern :
         {std::string("[a"), std::string("a["), std::string("[!"), std::string(1001, '*')})
        EXPECT_EQ(raisedBy([&] { const LikePattern refused(pattern); }).Number(), 93) << pattern;
}

}  // namespace
}  // namespace velt::access
