// SPDX-License-Identifier: MIT
#include "trendviewer/modcolor.h"

#include <gtest/gtest.h>

namespace velt {
namespace {

TEST(modColorTest, ComposesAndSplits) {
    EXPECT_EQ(modColor::Componi(255, 0, 0), 255u);
    EXPECT_EQ(modColor::Componi(0, 0, 255), 16711680u);
    EXPECT_EQ(modColor::Rosso(0x00FF8040), 0x40);
    EXPECT_EQ(modColor::Verde(0x00FF8040), 0x80);
    EXPECT_EQ(modColor::Blu(0x00FF8040), 0xFF);
    EXPECT_EQ(modColor::Blu(0x80000012), 0) << "bits beyond the channels do not count";
}

TEST(modColorTest, TextGoesThereAndBack) {
    EXPECT_EQ(modColor::text(0x00FF8040), "#4080FF");
    for (const OleColor color : {0x00FF8040u, 0u, 0xFFFFFFu, 0x00000Au})
        EXPECT_EQ(modColor::fromText(modColor::text(color)), color);

    struct Case {
        const char* text;
        std::optional<OleColor> color;
    };
    const Case cases[] = {
        {"#4080ff", 0x00FF8040},      {"16711680", 16711680u},  {"0", 0u},
        {"", std::nullopt},           {"#4080F", std::nullopt}, {"#4080FG", std::nullopt},
        {"16777216", std::nullopt},   {"-1", std::nullopt},     {"rosso", std::nullopt},
        {"99999999999", std::nullopt}};
    for (const Case& c : cases) EXPECT_EQ(modColor::fromText(c.text), c.color) << c.text;
}

}  // namespace
}  // namespace velt
