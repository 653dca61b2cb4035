// SPDX-License-Identifier: MIT
#pragma once

#include "platform/chart.h"
#include "platform/locale.h"
#include "trendviewer/valueaxis.h"

#include <QColor>
#include <QFont>
#include <QPalette>

#include <array>
#include <memory>

namespace velt::ui {

/// Colours of a drawing beside those of its pens.
struct ChartColors {
    QColor background = Qt::white;
    QColor text = Qt::black;
    QColor grid = QColor(0xD8, 0xD8, 0xD8);

    /// As lists and tables of the desktop look.
    [[nodiscard]] static ChartColors of(const QPalette& palette);
};

/// A font that measures the same on every device: sizes in pixels.
[[nodiscard]] QFont chartFont(const QFont& font = QFont(), int pixels = 12);

/// Everything that a drawing depends on. Lengths are logical pixels; for paper the painter is
/// scaled.
struct ChartDrawing {
    std::shared_ptr<const ChartContents> contents;  ///< null: nothing has been asked for yet
    bool isPart = false;  ///< of the window that was asked for: the operator has zoomed
    ScaleChoice choice;
    std::array<QColor, ChartSeriesCount> penColors = {Qt::blue, Qt::red, Qt::darkGreen,
                                                      Qt::magenta};
    ChartColors colors;
    QFont font = chartFont();
    Locale locale;

    /// A trend is chosen for the pen, and the pen is to be seen.
    [[nodiscard]] bool shows(std::size_t series) const {
        return contents && choice.visible[series] && !contents->series[series].name.empty();
    }
};

}  // namespace velt::ui
