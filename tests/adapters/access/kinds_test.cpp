// SPDX-License-Identifier: MIT
// Every kind of column on its way from the file into a result, and names of every spelling.
#include "tests/adapters/access/accessfile.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

namespace velt::access {
namespace {

using jet::ColumnType;
using ::testing::ElementsAre;

TEST(Kinds, ComeAsTheyAreStored) {
    AccessFile file;
    const std::vector<std::uint8_t> bytes = {0x00, 0xAB, 0xFF};
    const std::vector<std::uint8_t> guid = {0x33, 0x22, 0x11, 0x00, 0x55, 0x44, 0x77, 0x66,
                                            0x88, 0x99, 0xAA, 0xBB, 0xCC, 0xDD, 0xEE, 0xFF};
    const std::string memo(10'000, 'm');
    struct Kind {
        const char* name = "";
        ColumnType type{};
        FieldType kind{};
        Variant stored;
        Variant read = stored;
    };
    const Kind kinds[] = {
        {"Si", ColumnType::Boolean, FieldType::Boolean, true},
        {"B", ColumnType::Byte, FieldType::Byte, std::uint8_t{255}},
        {"I", ColumnType::Integer, FieldType::Integer, std::int16_t{-32768}},
        {"L", ColumnType::Long, FieldType::Long, std::int32_t{-2147483647 - 1}},
        {"C", ColumnType::Currency, FieldType::Double, 12345.6789},
        {"S", ColumnType::Single, FieldType::Single, 0.1F},
        {"D", ColumnType::Double, FieldType::Double, 0.1},
        {"T", ColumnType::Date, FieldType::Date, Date(-1.25)},
        {"X", ColumnType::Text, FieldType::Text, "perché €"},
        {"M", ColumnType::Memo, FieldType::Text, memo},
        {"Y", ColumnType::Binary, FieldType::Text, bytes, "00ABFF"},
        {"G", ColumnType::Guid, FieldType::Text, guid, "{00112233-4455-6677-8899-AABBCCDDEEFF}"},
        {"N", ColumnType::Numeric, FieldType::Double, "-123", -123.0},
    };
    std::vector<jet::ColumnDefinition> columns;
    Row full;
    Row nulls;
    for (const Kind& kind : kinds) {
        columns.push_back({kind.name, kind.type});
        full.push_back(kind.stored);
        nulls.emplace_back(Null{});
    }
    file.addTable("Tipi", columns, {full, nulls});
    const auto rows = file.query("SELECT * FROM Tipi ORDER BY T DESC");
    ASSERT_EQ(rows->rowCount(), 2U);
    for (std::size_t i = 0; i < std::size(kinds); ++i) {
        EXPECT_EQ(rows->columnType(i), kinds[i].kind) << kinds[i].name;
        EXPECT_EQ(rows->value(0, i), kinds[i].read) << kinds[i].name;
        const bool boolean = kinds[i].type == ColumnType::Boolean;  // which knows no null
        EXPECT_EQ(rows->value(1, i), boolean ? Variant(false) : Variant(Null{})) << kinds[i].name;
    }
    EXPECT_EQ(rows->doubles(7)[0], -1.25) << "as stored, not as compared";
    EXPECT_THAT(file.texts("SELECT Max(T), Min(I), Count(*), Sum(L), Avg(D), Min(X) FROM Tipi"),
                ElementsAre("1899-12-29 06:00:00|-32768|2|-2147483648|0.1|perché €"));
}

TEST(Kinds, NumbersThatAreNone) {
    AccessFile file;
    const double infinite = std::numeric_limits<double>::infinity();
    const double none = std::numeric_limits<double>::quiet_NaN();
    file.addTable("Strani", {{"D", ColumnType::Date}, {"V", ColumnType::Double}},
                  {{Date(none), none},
                   {Date(infinite), infinite},
                   {Date(-infinite), -infinite},
                   {Date(1e300), 1e300},
                   {Date(0.0), -0.0}});
    const auto rows = file.query("SELECT V, D FROM Strani ORDER BY D");
    EXPECT_EQ(rows->value(0, 0), Variant(Null{}));
    for (const std::size_t column : {0U, 1U}) {
        const auto values = rows->doubles(column);
        EXPECT_THAT(std::vector<double>(values.begin() + 1, values.end()),
                    ElementsAre(-infinite, -0.0, 1e300, infinite));
    }
}

TEST(Kinds, NamesAreFoundInAnyLetterCase) {
    AccessFile file;
    file.addTable("Cloro Residuo", {{"select", ColumnType::Long}, {"a\"b", ColumnType::Long}},
                  {{std::int32_t{2}, std::int32_t{3}}});
    EXPECT_THAT(file.texts("SELECT [select], `a\"b` FROM [CLORO residuo]"), ElementsAre("2|3"));
    file.addTable("Livelli", {{"Quantità", ColumnType::Double}, {"Città", ColumnType::Text}},
                  {{1.5, "Forlì"}});
    const auto rows =
        file.query("SELECT QUANTITÀ, Livelli.CITTÀ FROM livelli WHERE [quantitÀ] > 1");
    ASSERT_EQ(rows->rowCount(), 1U);
    EXPECT_EQ(rows->columnName(0), "Quantità");
    EXPECT_EQ(rows->columnName(1), "Città");
}

}  // namespace
}  // namespace velt::access
