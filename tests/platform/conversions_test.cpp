// SPDX-License-Identifier: MIT
#include "platform/conversions.h"

#include "tests/errorof.h"

#include <gtest/gtest.h>

#include <limits>

namespace velt {
namespace {

using namespace conversions;

constexpr auto Mismatch = ErrorNumber::TypeMismatch;
constexpr auto Overflow = ErrorNumber::Overflow;

const Locale Italian;
const Locale American = [] {
    Locale locale;
    locale.decimalSign = '.';
    locale.groupSign = ',';
    locale.timeSeparator = ':';
    locale.dateOrder = Locale::DateOrder::MonthDayYear;
    locale.trueText = "True";
    locale.falseText = "False";
    return locale;
}();

TEST(Conversions, ReadsNumbersByTheLocale) {
    const std::pair<const char*, double> cases[] = {
        {"12", 12},      {"12,5", 12.5},     {" -0,25 ", -0.25}, {"+7", 7},
        {",5", 0.5},     {"5,", 5},          {"1.234", 1234},    {"1.234.567,5", 1234567.5},
        {"1,5e3", 1500}, {"1,5E-3", 0.0015}, {"2d2", 200},       {"1e-400", 0},
    };
    for (const auto& [text, value] : cases)
        EXPECT_DOUBLE_EQ(toDouble(text, Italian), value) << text;
    EXPECT_DOUBLE_EQ(toDouble("1,234.5", American), 1234.5);
}

TEST(Conversions, RefusesWhatIsNoNumber) {
    // A misplaced group sign most of all: it must not turn into another number.
    for (const char* text :
         {"",       " ",    "abc",    "12.5",  "1.2345",  "1.2345.678", "1234.567",
          "1..234", ".123", "1.234.", "1,2,3", "1,5.000", "--1",        "1e",
          "1e+",    "0x10", "1 2",    "12a",   "inf",     "nan"})
        EXPECT_EQ(errorOf([&] { (void)toDouble(text, Italian); }), Mismatch) << text;
    EXPECT_EQ(errorOf([] { (void)toDouble("1e400", Italian); }), Overflow);
    EXPECT_EQ(errorOf([] { (void)toSingle("1e39", Italian); }), Overflow);
}

TEST(Conversions, RoundsToWholeNumbersHalfToEven) {
    const std::pair<const char*, int> cases[] = {
        {"2,5", 2}, {"3,5", 4}, {"-2,5", -2}, {"0,5", 0}, {"32767,4", 32767}, {"-32768,5", -32768}};
    for (const auto& [text, value] : cases) EXPECT_EQ(toInt16(text, Italian), value) << text;
    EXPECT_EQ(errorOf([] { (void)toInt16("40000", Italian); }), Overflow);
    EXPECT_EQ(errorOf([] { (void)toInt16("32767,5", Italian); }), Overflow);
    EXPECT_EQ(toInt32("-2147483648", Italian), std::numeric_limits<std::int32_t>::min());
    EXPECT_EQ(errorOf([] { (void)toInt32("2147483648", Italian); }), Overflow);
    EXPECT_EQ(toByte("254,5", Italian), 254);
    EXPECT_EQ(errorOf([] { (void)toByte("-1", Italian); }), Overflow);
    EXPECT_EQ(errorOf([] { (void)toByte("256", Italian); }), Overflow);
}

TEST(Conversions, ReadsBooleans) {
    for (const char* text : {"Vero", "vero", "TRUE", "1", "-1", "0,5"})
        EXPECT_TRUE(toBool(text, Italian)) << text;
    for (const char* text : {"Falso", "false", "0", "0,0"})
        EXPECT_FALSE(toBool(text, Italian)) << text;
    for (const char* text : {"", "sì", "veroo"})
        EXPECT_EQ(errorOf([&] { (void)toBool(text, Italian); }), Mismatch) << text;
}

TEST(Conversions, ReadsDates) {
    const std::pair<const char*, Date::Fields> cases[] = {
        {"14/03/2006", {2006, 3, 14, 0, 0, 0, 0}},
        {"14/3/06 7.30.05", {2006, 3, 14, 7, 30, 5, 0}},
        {"14.03.2006", {2006, 3, 14, 0, 0, 0, 0}},
        {"2006-03-14T18:45:12", {2006, 3, 14, 18, 45, 12, 0}},
        {"1/1/30", {1930, 1, 1, 0, 0, 0, 0}},
        {"1/1/29", {2029, 1, 1, 0, 0, 0, 0}},
        {"18.45", {1899, 12, 30, 18, 45, 0, 0}},
        {"18:45:12", {1899, 12, 30, 18, 45, 12, 0}},
    };
    for (const auto& [text, fields] : cases)
        EXPECT_EQ(toDate(text, Italian).fields(), fields) << text;
    EXPECT_EQ(toDate("3/14/2006", American).fields(), (Date::Fields{2006, 3, 14, 0, 0, 0, 0}));
    for (const char* text : {"", "domani", "31/02/2006", "14/03", "14/03/2006 25:00", "1/2/3/4",
                             "12345/1/1", "14/03/2006 7:30 pm", "3/14/2006", "7:60", "/1/2"}) {
        EXPECT_EQ(errorOf([&] { (void)toDate(text, Italian); }), Mismatch) << text;
    }
}

TEST(Conversions, WritesNumbersWithTheirDefaultDigits) {
    const std::pair<double, const char*> doubles[] = {
        {-0.0, "0"},
        {-12.5, "-12,5"},
        {1.0 / 3.0, "0,333333333333333"},
        {1e14, "100000000000000"},
        {1e15, "1E+15"},
        {1.5e20, "1,5E+20"},
        {0.0001, "0,0001"},
        {0.00001, "1E-05"},
        {0.1 + 0.2, "0,3"},
        {999999999999999.9, "1E+15"},
        {2.5e-300, "2,5E-300"},
    };
    for (const auto& [value, expected] : doubles) EXPECT_EQ(text(value, Italian), expected);
    EXPECT_EQ(text(0.1F, Italian), "0,1");
    EXPECT_EQ(text(16777216.0F, Italian), "1,677722E+07");
    EXPECT_EQ(text(std::numeric_limits<double>::quiet_NaN(), Italian), "NaN");
    EXPECT_EQ(text(-std::numeric_limits<double>::infinity(), Italian), "-INF");
    EXPECT_EQ(text(12.5, American), "12.5");
}

TEST(Conversions, WritesDates) {
    EXPECT_EQ(text(Date::fromFields({2006, 3, 14, 7, 5, 9, 0}), Italian), "14/03/2006 07.05.09");
    EXPECT_EQ(text(Date::fromFields({2006, 3, 14, 0, 0, 0, 0}), Italian), "14/03/2006");
    EXPECT_EQ(text(Date(0.5), Italian), "12.00.00");
    EXPECT_EQ(text(Date(0.0), Italian), "00.00.00");
    EXPECT_EQ(text(Date::fromFields({2006, 3, 14, 7, 5, 9, 0}), American), "03/14/2006 07:05:09");
    EXPECT_EQ(text(Date(3e9), Italian), "#3000000000");
}

TEST(Conversions, WritesAnyScalarAndNoArray) {
    const std::pair<Variant, const char*> cases[] = {
        {Variant(), ""},
        {Variant(Null{}), ""},
        {Variant(true), "Vero"},
        {Variant(false), "Falso"},
        {Variant(std::uint8_t{200}), "200"},
        {Variant(1.5F), "1,5"},
    };
    for (const auto& [value, expected] : cases) EXPECT_EQ(text(value, Italian), expected);
    EXPECT_EQ(errorOf([] { (void)text(Variant(std::vector<double>{1}), Italian); }), Mismatch);
}

TEST(Conversions, PlainNumbersIgnoreTheLocale) {
    const std::pair<const char*, double> numbers[] = {
        {"12.5", 12.5}, {"12,5", 12.5}, {" -3 ", -3}, {"+4", 4}, {"1e3", 1000}};
    for (const auto& [text, value] : numbers) EXPECT_EQ(plainNumber(text), value) << text;
    for (const char* text : {"", " ", "abc", "1,2.3", "1e999", "nan", "inf", "0x1", "+-1", "1 2"})
        EXPECT_EQ(plainNumber(text), std::nullopt) << text;
    EXPECT_EQ(plainInteger("-7"), -7);
    for (const char* text : {"1.5", "3000000000", ""}) EXPECT_EQ(plainInteger(text), std::nullopt);
}

}  // namespace
}  // namespace velt
