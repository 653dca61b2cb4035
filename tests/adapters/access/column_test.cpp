// SPDX-License-Identifier: MIT
#include "adapters/access/column.h"

#include <gtest/gtest.h>

namespace velt::access {
namespace {

TEST(PackedIds, WidenAsTheyMust) {
    const std::vector<std::uint32_t> lists[] = {
        {0, 255, 256, 7, 65'535, 65'536, 1, 4'294'967'295},
        {3, 70'000},  // from one byte to four at once
    };
    for (const auto& list : lists) {
        PackedIds ids;
        for (const std::uint32_t value : list) ids.push(value);
        for (std::size_t i = 0; i < list.size(); ++i) EXPECT_EQ(ids[i], list[i]);
    }
}

TEST(TextDictionary, NumbersEveryTextOnceAndKeepsItInPlace) {
    TextDictionary dictionary;
    EXPECT_EQ(dictionary.intern(""), 0U);
    const std::string large(1'000'000, 'x');
    EXPECT_EQ(dictionary.intern(large), 1U);
    const std::string_view text = dictionary.text(1);
    for (int pass = 0; pass < 2; ++pass)
        for (std::uint32_t i = 2; i < 100'000; ++i)
            ASSERT_EQ(dictionary.intern("text " + std::to_string(i)), i);
    dictionary.freeze();
    EXPECT_EQ(dictionary.text(1).data(), text.data());
    EXPECT_EQ(text, large);
    EXPECT_EQ(dictionary.text(99'999), "text 99999");
}

}  // namespace
}  // namespace velt::access
