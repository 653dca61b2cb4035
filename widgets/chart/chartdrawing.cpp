// SPDX-License-Identifier: MIT
#include "widgets/chart/chartdrawing.h"

namespace velt::ui {
namespace {

constexpr double GridStrength = 0.18;  // of the text's colour over the background

int mixed(int a, int b) { return static_cast<int>(a + (b - a) * GridStrength); }

}  // namespace

ChartColors ChartColors::of(const QPalette& palette) {
    const QColor back = palette.color(QPalette::Active, QPalette::Base);
    const QColor text = palette.color(QPalette::Active, QPalette::Text);
    return {back, text,
            QColor(mixed(back.red(), text.red()), mixed(back.green(), text.green()),
                   mixed(back.blue(), text.blue()))};
}

QFont chartFont(const QFont& font, int pixels) {
    QFont result(font);
    result.setPixelSize(pixels);
    return result;
}

}  // namespace velt::ui
