// SPDX-License-Identifier: MIT
#include "adapters/qt/colors.h"

#include <gtest/gtest.h>

namespace velt::qt {
namespace {

TEST(ColorsTest, ReadsOleColours) {
    QPalette palette;
    palette.setColor(QPalette::Button, QColor(1, 2, 3));
    palette.setColor(QPalette::ButtonText, QColor(4, 5, 6));
    palette.setColor(QPalette::Window, QColor(7, 8, 9));
    const struct {
        OleColor color;
        QColor expected;
    } cases[] = {{0x000000FF, QColor(255, 0, 0)},        {0x00FF0000, QColor(0, 0, 255)},
                 {0x00112233, QColor(0x33, 0x22, 0x11)}, {0x8000000F, QColor(1, 2, 3)},
                 {0x80000012, QColor(4, 5, 6)},          {0x800000FF, QColor(7, 8, 9)}};
    for (const auto& c : cases) EXPECT_EQ(toQColor(c.color, palette), c.expected) << c.color;
    EXPECT_EQ(toOleColor(QColor(0x33, 0x22, 0x11)), 0x00112233U);
}

}  // namespace
}  // namespace velt::qt
