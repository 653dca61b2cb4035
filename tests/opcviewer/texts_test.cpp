// SPDX-License-Identifier: MIT
// Between values and their texts, and the texts of qualities.
#include "opcviewer/quality.h"
#include "opcviewer/valuetext.h"
#include "opcviewer/writevalue.h"

#include <gtest/gtest.h>

namespace velt {
namespace {

const Date Day = Date::fromFields({2006, 3, 14, 0, 0, 0, 0});

std::optional<Variant> convert(int type, const std::string& text) {
    return ConvertiParti(type, SeparaParti(text), Locale{});
}

TEST(WriteValue, EveryTypeAndItsArrayTakeTheirValues) {
    const auto expect = [](const std::vector<int>& types, const std::string& text, auto value) {
        for (const int type : types) {
            EXPECT_EQ(convert(type, text), Variant(value)) << type;
            EXPECT_EQ(convert(8192 + type, text + ";" + text), Variant(std::vector{value, value}))
                << type;
        }
    };
    expect({2, 16}, "12", std::int16_t{12});
    expect({3, 18, 19, 22, 23}, "1.000.000", std::int32_t{1000000});
    expect({4}, "0,5", 0.5F);
    expect({5}, "1e300", 1e300);
    expect({11}, "vero", true);
    expect({17}, "255", std::uint8_t{255});
    expect({7}, "14/03/2006", Day);
    expect({8}, " testo ", std::string(" testo "));
    EXPECT_EQ(convert(15, "255"), std::uint8_t{255});
    EXPECT_EQ(convert(8, ";b"), "");
    EXPECT_EQ(convert(8200, "a;;c;"), (std::vector<std::string>{"a", "", "c", ""}));
    for (const int type : {0, 1, 6, 9, 10, 12, 13, 14, 20, 21, 8192, 8204, 8207, 8212, 16387, -1})
        EXPECT_EQ(convert(type, "1"), std::nullopt) << type;
}

TEST(ValueText, ScalarsAndArrays) {
    const std::pair<Variant, const char*> cases[] = {
        {Day.addSeconds(1), "14/03/2006 00.00.01"},
        {std::vector<std::int32_t>{1, 2, 3}, "(1; 2; 3)"},
        {std::vector<bool>{true, false}, "(Vero; Falso)"},
        {std::vector<double>{1.5, 1e20}, "(1,5; 1E+20)"},
        {std::vector<std::string>{"", "x", ""}, "(; x; )"},
        {std::vector<Date>{}, "()"}};
    for (const auto& [value, text] : cases) EXPECT_EQ(FormattaValore(value, Locale{}), text);
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
