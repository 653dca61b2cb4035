// SPDX-License-Identifier: MIT
#include "adapters/qt/qtcolorlabel.h"

#include "adapters/qt/colors.h"

namespace velt::qt {

QtColorLabel::QtColorLabel(GatedControl& control, ColorSwatch* swatch) : swatch_(swatch) {
    QObject::connect(swatch, &ColorSwatch::clicked, &connections_,
                     [this, &control] { control.operatorInput([this] { Click.raise(); }); });
    QObject::connect(swatch, &ColorSwatch::doubleClicked, &connections_,
                     [this, &control] { control.operatorInput([this] { DblClick.raise(); }); });
}

void QtColorLabel::BackColor(OleColor color) {
    color_ = color;
    if (swatch_) swatch_->setColor(toQColor(color, swatch_->palette()));
}

}  // namespace velt::qt
