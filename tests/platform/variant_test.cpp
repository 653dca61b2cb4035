// SPDX-License-Identifier: MIT
#include "platform/variant.h"

#include <gtest/gtest.h>

namespace velt {
namespace {

TEST(VariantTest, KnowsItsTypeCode) {
    const std::pair<Variant, int> cases[] = {
        {Variant(), 0},
        {Variant(Null{}), 1},
        {Variant(std::int32_t{1}), 3},
        {Variant(1.0F), 4},
        {Variant(1.0), 5},
        {Variant(Date(1.0)), 7},
        {Variant("a"), 8},
        {Variant(true), 11},
        {Variant(std::uint8_t{1}), 17},
        {Variant(std::int16_t{1}), 2},
        {Variant(std::vector<bool>{true}), 8203},
        {Variant(std::vector<std::uint8_t>{1}), 8209},
        {Variant(std::vector<std::int16_t>{1}), 8194},
        {Variant(std::vector<std::int32_t>{1}), 8195},
        {Variant(std::vector<float>{1}), 8196},
        {Variant(std::vector<double>{1}), 8197},
        {Variant(std::vector<Date>{Date(1.0)}), 8199},
        {Variant(std::vector<std::string>{"a"}), 8200},
    };
    for (const auto& [value, code] : cases) EXPECT_EQ(value.typeCode(), code);
}

}  // namespace
}  // namespace velt
