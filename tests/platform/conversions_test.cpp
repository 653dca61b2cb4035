// SPDX-License-Identifier: MIT
#include "platform/conversions.h"

#include "tests/errorof.h"

#include <gtest/gtest.h>

#include <limits>

namespace velt {
namespace {

using namespace conversions;

const Locale Italian;
const Locale American{.decimalSign = '.',
                      .groupSign = ',',
                      .timeSeparator = ':',
                      .dateOrder = Locale::DateOrder::MonthDayYear};

/// What a conversion makes of each text, as text again; "!" and its number for an error.
template <typename Convert>
std::string made(Convert convert, const std::vector<const char*>& texts,
                 const Locale& locale = Italian) {
    std::string all;
    for (const char* from : texts) {
        std::string one;
        const auto error = errorOf([&] { one = text(Variant(convert(from, locale)), locale); });
        all += (error ? "!" + std::to_string(static_cast<int>(*error)) : one) + " | ";
    }
    return all;
}

std::string written(const std::vector<Variant>& values) {
    std::string all;
    for (const Variant& value : values) all += text(value, Italian) + " | ";
    return all;
}

TEST(Conversions, ReadNumbersByTheLocale) {
    EXPECT_EQ(
        made(toDouble, {"12", "12,5", " -0,25 ", "+7", ",5", "5,", "1.234", "1.234.567,5", "1,5e3",
                        "1,5E-3", "2d2", "1e-400", "1e400"}),
        "12 | 12,5 | -0,25 | 7 | 0,5 | 5 | 1234 | 1234567,5 | 1500 | 0,0015 | 200 | 0 | !6 | ");
    EXPECT_EQ(toDouble("1,234.5", American), 1234.5);
    // A misplaced group sign most of all: it must not turn into another number.
    for (const char* text :
         {"",       " ",    "abc",    "12.5",  "1.2345",  "1.2345.678", "1234.567",
          "1..234", ".123", "1.234.", "1,2,3", "1,5.000", "--1",        "1e",
          "1e+",    "0x10", "1 2",    "12a",   "inf",     "nan"})
        EXPECT_EQ(made(toDouble, {text}), "!13 | ") << text;
}

TEST(Conversions, NarrowAndRoundHalfToEven) {
    EXPECT_EQ(made(toInt16, {"2,5", "3,5", "-2,5", "32767,4", "32767,5", "-32768,5"}),
              "2 | 4 | -2 | 32767 | !6 | -32768 | ");
    EXPECT_EQ(made(toInt32, {"-2147483648", "2147483648"}), "-2147483648 | !6 | ");
    EXPECT_EQ(made(toByte, {"254,5", "256", "-1"}), "254 | !6 | !6 | ");
    EXPECT_EQ(made(toSingle, {"0,1", "1e39"}), "0,1 | !6 | ");
    EXPECT_EQ(made(toBool, {"vero", "TRUE", "-1", "0,5", "Falso", "false", "0,0", "", "sì"}),
              "Vero | Vero | Vero | Vero | Falso | Falso | Falso | !13 | !13 | ");
}

TEST(Conversions, ReadAndWriteDates) {
    EXPECT_EQ(made(toDate, {"14/3/06 7.05.09", "14.03.2006", "2006-03-14T18:45:12", "1/1/30",
                            "1/1/29", "18.45", "18:45:12", "00:00"}),
              "14/03/2006 07.05.09 | 14/03/2006 | 14/03/2006 18.45.12 | 01/01/1930 | 01/01/2029 | "
              "18.45.00 | 18.45.12 | 00.00.00 | ");
    EXPECT_EQ(made(toDate, {"3/14/2006 7:05"}, American), "03/14/2006 07:05:00 | ");
    for (const char* text : {"", "domani", "31/02/2006", "14/03", "14/03/2006 25:00", "1/2/3/4",
                             "12345/1/1", "14/03/2006 7:30 pm", "3/14/2006", "7:60", "/1/2"})
        EXPECT_EQ(made(toDate, {text}), "!13 | ") << text;
    EXPECT_EQ(text(Date(3e9), Italian), "#3000000000");
}

TEST(Conversions, WriteAnyScalarAndNoArray) {
    EXPECT_EQ(written({Variant(), Null{}, std::uint8_t{200}, true}), " |  | 200 | Vero | ");
    EXPECT_EQ(written({-0.0, -12.5, 1.0 / 3.0, 1e14, 1e15, 1.5e20, 0.0001, 0.00001, 0.1 + 0.2}),
              "0 | -12,5 | 0,333333333333333 | 100000000000000 | 1E+15 | 1,5E+20 | 0,0001 | 1E-05 "
              "| 0,3 | ");
    using Limits = std::numeric_limits<double>;
    EXPECT_EQ(written({999999999999999.9, 2.5e-300, 0.1F, 16777216.0F, Limits::quiet_NaN(),
                       -Limits::infinity()}),
              "1E+15 | 2,5E-300 | 0,1 | 1,677722E+07 | NaN | -INF | ");
    EXPECT_EQ(errorOf([] { (void)text(Variant(std::vector<double>{1}), Italian); }),
              ErrorNumber::TypeMismatch);
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
