// SPDX-License-Identifier: MIT
#include "trendviewer/modcolor.h"

#include <gtest/gtest.h>

namespace velt {
namespace {

TEST(modColorTest, ComposesSplitsAndReads) {
    EXPECT_EQ(modColor::Componi(255, 0, 0), 255u);
    EXPECT_EQ(modColor::Componi(0, 0, 255), 16711680u);
    EXPECT_EQ(modColor::text(0x80FF8040), "#4080FF") << "bits beyond the channels do not count";
    using Case = std::pair<const char*, std::optional<OleColor>>;
    for (const auto& [text, color] : {Case{"#4080ff", 0x00FF8040},
                                      {"#00000A", 0x0A0000u},
                                      {"16711680", 16711680u},
                                      {"0", 0u},
                                      {"", std::nullopt},
                                      {"#4080F", std::nullopt},
                                      {"#4080FG", std::nullopt},
                                      {"16777216", std::nullopt},
                                      {"-1", std::nullopt},
                                      {"rosso", std::nullopt},
                                      {"99999999999", std::nullopt}})
        EXPECT_EQ(modColor::fromText(text), color) << text;
}

}  // namespace
}  // namespace velt
