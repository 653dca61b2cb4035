// SPDX-License-Identifier: MIT
#pragma once

#include "platform/propertybag.h"

#include <QColor>
#include <QPalette>

namespace velt::qt {

/// A system colour is taken from `palette`; an unknown one reads as the window's colour.
[[nodiscard]] QColor toQColor(OleColor color, const QPalette& palette);

[[nodiscard]] OleColor toOleColor(const QColor& color);

/// Black or white, whichever can be read on `color`.
[[nodiscard]] inline QColor readableOn(const QColor& color) {
    return qGray(color.rgb()) > 140 ? Qt::black : Qt::white;
}

}  // namespace velt::qt
