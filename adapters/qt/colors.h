// SPDX-License-Identifier: MIT
#pragma once

#include "platform/propertybag.h"

#include <QColor>
#include <QPalette>

namespace velt::qt {

/// A system colour is taken from `palette`; an unknown one reads as the window's colour.
[[nodiscard]] QColor toQColor(OleColor color, const QPalette& palette);

[[nodiscard]] OleColor toOleColor(const QColor& color);

}  // namespace velt::qt
