// SPDX-License-Identifier: MIT
#include "adapters/access/column.h"

#include <gtest/gtest.h>

#include <cmath>

namespace velt::access {
namespace {

TEST(PackedIds, WidenAsTheyMust) {
    PackedIds ids;
    const std::uint32_t values[] = {0, 255, 256, 7, 65'535, 65'536, 1, 4'294'967'295};
    for (const std::uint32_t value : values) ids.push(value);
    for (std::size_t i = 0; i < std::size(values); ++i) EXPECT_EQ(ids[i], values[i]);

    PackedIds jump;
    jump.push(3);
    jump.push(70'000);  // from one byte to four at once
    EXPECT_EQ(jump[0], 3U);
    EXPECT_EQ(jump[1], 70'000U);
    jump.truncate(1);
    EXPECT_EQ(jump.size(), 1U);
}

TEST(TextDictionary, NumbersEveryTextOnceAndKeepsItInPlace) {
    TextDictionary dictionary;
    ASSERT_EQ(dictionary.intern("first"), 0U);
    const char* const place = dictionary.text(0).data();
    for (std::uint32_t i = 1; i < 100'000; ++i)
        ASSERT_EQ(dictionary.intern("text " + std::to_string(i)), i);
    ASSERT_EQ(dictionary.intern(std::string(1'000'000, 'x')), 100'000U);
    ASSERT_EQ(dictionary.intern(""), 100'001U);
    EXPECT_EQ(dictionary.intern("text 4711"), 4711U);
    EXPECT_EQ(dictionary.intern(std::string(1'000'000, 'x')), 100'000U);
    EXPECT_EQ(dictionary.intern(""), 100'001U);
    EXPECT_EQ(dictionary.size(), 100'002U);
    EXPECT_EQ(dictionary.text(0).data(), place);
    EXPECT_NE(dictionary.text(100'001).data(), nullptr);
    dictionary.freeze();
    EXPECT_EQ(dictionary.text(99'999), "text 99999");
}

TEST(Column, TellsNullFromEmptyText) {
    Column column(FieldType::Text);
    column.appendNull();
    column.append(std::string_view(""));
    column.append(std::string_view("a"));
    EXPECT_EQ(column.value(0), Variant(Null{}));
    EXPECT_EQ(column.value(1), Variant(std::string()));
    EXPECT_EQ(column.value(2), Variant(std::string("a")));
}

TEST(Column, GivesValuesOfItsKind) {
    const std::pair<FieldType, Variant> cases[] = {
        {FieldType::Boolean, Variant(false)},
        {FieldType::Byte, Variant(std::uint8_t{0})},
        {FieldType::Integer, Variant(std::int16_t{0})},
        {FieldType::Long, Variant(std::int32_t{0})},
        {FieldType::Single, Variant(0.0F)},
        {FieldType::Double, Variant(0.0)},
        {FieldType::Date, Variant(Date(0.0))},
        {FieldType::Text, Variant(std::string("0"))},
    };
    for (const auto& [type, expected] : cases) {
        Column column(type);
        column.append(0.0);
        column.appendNull();
        EXPECT_EQ(column.value(0), expected);
        EXPECT_TRUE(column.isNull(1));
        EXPECT_EQ(column.value(1), Variant(Null{}));
    }
}

TEST(Column, TakesNumbersBeyondItsKind) {
    const std::pair<FieldType, double> cases[] = {
        {FieldType::Boolean, 2.0}, {FieldType::Byte, 256.0}, {FieldType::Byte, -1.0},
        {FieldType::Integer, 4e4}, {FieldType::Long, 3e9},   {FieldType::Long, 0.5},
        {FieldType::Single, 0.1},
    };
    for (const auto& [type, number] : cases) {
        Column column(type);
        column.append(0.0);
        column.append(number);
        EXPECT_EQ(column.type(), FieldType::Double);
        EXPECT_EQ(column.value(1), Variant(number));
    }
}

TEST(Column, OfMixedKindsBecomesText) {
    Column column(FieldType::Unknown);
    column.appendNull();
    column.assume(FieldType::Long);
    column.append(12.0);
    column.append(std::string_view("x"));
    column.append(0.5);
    EXPECT_EQ(column.value(0), Variant(Null{}));
    EXPECT_EQ(column.value(1), Variant(std::string("12")));
    EXPECT_EQ(column.value(2), Variant(std::string("x")));
    EXPECT_EQ(column.value(3), Variant(std::string("0.5")));
    EXPECT_TRUE(column.numbers().empty());

    Column dates(FieldType::Date);
    dates.append(38790.3125);
    dates.append(std::string_view(""));
    EXPECT_EQ(dates.value(0), Variant(std::string("2006-03-14 07:30:00")));
}

TEST(Column, TakesBackRows) {
    for (const FieldType type : {FieldType::Double, FieldType::Text}) {
        Column column(type);
        column.append(1.0);
        column.append(2.0);
        column.truncate(1);
        column.truncate(5);
        EXPECT_EQ(column.size(), 1U);
    }
}

}  // namespace
}  // namespace velt::access
