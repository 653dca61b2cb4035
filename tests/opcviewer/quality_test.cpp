// SPDX-License-Identifier: MIT
#include "opcviewer/quality.h"

#include <gtest/gtest.h>

namespace velt {
namespace {

TEST(Quality, EveryWordHasItsText) {
    const std::pair<int, const char*> known[] = {{0, "Bad"},
                                                 {4, "Config Error"},
                                                 {8, "Not Connected"},
                                                 {12, "Device Failure"},
                                                 {16, "Sensor Failure"},
                                                 {20, "Last Known"},
                                                 {24, "Comm Failure"},
                                                 {28, "Out of Service"},
                                                 {32, "Waiting Initial Data"},
                                                 {64, "Uncertain"},
                                                 {68, "Last Usable"},
                                                 {80, "Sensor Cal"},
                                                 {84, "EGU Exceeded"},
                                                 {88, "Sub Normal"},
                                                 {192, "Good"},
                                                 {216, "Local Override"}};
    for (const auto& [quality, text] : known) EXPECT_EQ(DescrizioneQualita(quality), text);
    // Limit bits, vendor bits and unknown sub-statuses are never masked away.
    for (const int quality : {1, 65, 72, 193, 194, 195, 217, 448, 65535, -1})
        EXPECT_EQ(DescrizioneQualita(quality), "Quality N° " + std::to_string(quality));
}

}  // namespace
}  // namespace velt
