// SPDX-License-Identifier: MIT
// Between values and their texts, and the texts of qualities.
#include "opcviewer/quality.h"
#include "opcviewer/valuetext.h"
#include "opcviewer/writevalue.h"
#include "tests/errorof.h"

#include <gtest/gtest.h>

#include <limits>

namespace velt {
namespace {

const Date Day = Date::fromFields({2006, 3, 14, 0, 0, 0, 0});

std::optional<Variant> convert(int type, const std::string& text) {
    return ConvertiParti(type, SeparaParti(text), Locale{});
}

TEST(WriteValue, EveryTypeTakesItsValue) {
    struct Case {
        std::vector<int> types;
        const char* text;
        Variant value;
    };
    const Case cases[] = {
        {{2, 16}, "12", std::int16_t{12}},
        {{3, 18, 19, 22, 23}, "1.000.000", std::int32_t{1000000}},
        {{3}, "2,5", std::int32_t{2}},
        {{4}, "0,5", 0.5F},
        {{5}, "1e300", 1e300},
        {{11}, "vero", true},
        {{11}, "0", false},
        {{15, 17}, "255", std::uint8_t{255}},
        {{7}, "14/03/2006", Day},
        {{8}, " testo ", " testo "},
        {{8}, "a;b", "a"},
        {{8}, ";b", ""},
        {{8194, 8208}, "1;2", std::vector<std::int16_t>{1, 2}},
        {{8195, 8210, 8211, 8214, 8215}, "1;2;3", std::vector<std::int32_t>{1, 2, 3}},
        {{8196}, "0,5", std::vector<float>{0.5F}},
        {{8197}, "1;2,5", std::vector<double>{1, 2.5}},
        {{8203}, "Vero;0;falso", std::vector<bool>{true, false, false}},
        {{8209}, "0;255", std::vector<std::uint8_t>{0, 255}},
        {{8199}, "14/03/2006", std::vector<Date>{Day}},
        {{8200}, "a;;c", std::vector<std::string>{"a", "", "c"}},
    };
    for (const Case& c : cases)
        for (const int type : c.types) EXPECT_EQ(convert(type, c.text), c.value) << type;
    for (const int type : {0, 1, 6, 9, 10, 12, 13, 14, 20, 21, 8192, 8204, 8207, 8212, 16387, -1})
        EXPECT_EQ(convert(type, "1"), std::nullopt) << type;
}

TEST(WriteValue, RefusesWhatIsOfTheWrongKindOrDoesNotFit) {
    const std::tuple<int, const char*, int> cases[] = {
        {2, "abc", 13},        {2, ";5", 13},        {2, "40000", 6},       {16, "-32769", 6},
        {19, "3000000000", 6}, {4, "1e39", 6},       {5, "12.5", 13},       {11, "forse", 13},
        {17, "256", 6},        {17, "-1", 6},        {7, "31/02/2006", 13}, {8194, "1;2;", 13},
        {8194, "1;40000", 6},  {8203, "Vero;x", 13},
    };
    for (const auto& [type, text, error] : cases)
        EXPECT_EQ(raisedBy([&] { (void)convert(type, text); }).Number(), error) << type << text;
}

TEST(ValueText, ScalarsAndArrays) {
    const Variant values[] = {Variant(),
                              true,
                              std::numeric_limits<double>::quiet_NaN(),
                              Day.addSeconds(1),
                              std::vector<std::int32_t>{1, 2, 3},
                              std::vector<std::uint8_t>{0, 255},
                              std::vector<bool>{true, false},
                              std::vector<float>{0.1F, 2.0F},
                              std::vector<double>{1.5, 1e20},
                              std::vector<std::string>{"", "x", ""},
                              std::vector<Date>{Date(0.5)},
                              std::vector<double>{}};
    std::string texts;
    for (const Variant& value : values) texts += FormattaValore(value, Locale{}) + "|";
    EXPECT_EQ(texts,
              "|Vero|NaN|14/03/2006 00.00.01|(1; 2; 3)|(0; 255)|(Vero; Falso)|(0,1; 2)|"
              "(1,5; 1E+20)|(; x; )|(12.00.00)|()|");
}

TEST(Quality, EveryWordHasItsText) {
    // Limit bits, vendor bits and unknown sub-statuses are never masked away.
    std::string known;
    for (int quality = -1; quality <= 65535; ++quality)
        if (const auto text = DescrizioneQualita(quality), number = std::to_string(quality);
            text != "Quality N° " + number)
            known += number + " " + text + ", ";
    EXPECT_EQ(known,
              "0 Bad, 4 Config Error, 8 Not Connected, 12 Device Failure, 16 Sensor Failure, "
              "20 Last Known, 24 Comm Failure, 28 Out of Service, 32 Waiting Initial Data, "
              "64 Uncertain, 68 Last Usable, 80 Sensor Cal, 84 EGU Exceeded, 88 Sub Normal, "
              "192 Good, 216 Local Override, ");
}

}  // namespace
}  // namespace velt
