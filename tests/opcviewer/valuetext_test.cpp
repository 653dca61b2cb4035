// SPDX-License-Identifier: MIT
#include "opcviewer/valuetext.h"

#include <gtest/gtest.h>

#include <limits>

namespace velt {
namespace {

TEST(ValueText, ScalarsAndArrays) {
    const std::pair<Variant, const char*> cases[] = {
        {Variant(), ""},
        {Variant(true), "Vero"},
        {Variant(std::numeric_limits<double>::quiet_NaN()), "NaN"},
        {Variant(Date::fromFields({2006, 3, 14, 7, 30, 0, 0})), "14/03/2006 07.30.00"},
        {Variant(std::vector<std::int32_t>{1, 2, 3}), "(1; 2; 3)"},
        {Variant(std::vector<std::uint8_t>{0, 255}), "(0; 255)"},
        {Variant(std::vector<bool>{true, false}), "(Vero; Falso)"},
        {Variant(std::vector<float>{0.1F, 2.0F}), "(0,1; 2)"},
        {Variant(std::vector<double>{1.5, 1e20}), "(1,5; 1E+20)"},
        {Variant(std::vector<std::string>{"", "x", ""}), "(; x; )"},
        {Variant(std::vector<Date>{Date(0.5)}), "(12.00.00)"},
        {Variant(std::vector<double>{}), "()"},
    };
    for (const auto& [value, text] : cases) EXPECT_EQ(FormattaValore(value, Locale{}), text);
}

}  // namespace
}  // namespace velt
