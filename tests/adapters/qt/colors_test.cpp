// SPDX-License-Identifier: MIT
#include "adapters/qt/colors.h"

#include "adapters/qt/qtframe.h"
#include "tests/qtmain.h"

#include <QApplication>
#include <QCheckBox>
#include <QGroupBox>
#include <QLineEdit>

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

TEST(ColorsTest, AFrameColoursWhatStandsOnItButNotTheInputs) {
    QWidget window;
    auto* box = new QGroupBox(&window);
    auto* check = new QCheckBox(box);
    auto* edit = new QLineEdit(box);
    const QColor base = edit->palette().color(QPalette::Base);
    QtFrame frame(box);
    frame.BackColor(0x00112233);
    frame.ForeColor(0x000000FF);
    EXPECT_EQ(check->palette().color(QPalette::WindowText), QColor(Qt::red));
    EXPECT_EQ(box->palette().color(QPalette::Window), QColor(0x33, 0x22, 0x11));
    EXPECT_EQ(edit->palette().color(QPalette::Base), base);
}

TEST(ColorsTest, SystemColoursFollowTheDesktop) {
    const QPalette before = QApplication::palette();
    QWidget window;
    QtFrame frame(&window);
    frame.BackColor(0x8000000F);
    QPalette dark = before;
    dark.setColor(QPalette::Button, QColor(10, 20, 30));
    QApplication::setPalette(dark);
    settle();
    EXPECT_EQ(window.palette().color(QPalette::Window), QColor(10, 20, 30));
    QApplication::setPalette(before);
    settle();
}

}  // namespace
}  // namespace velt::qt
