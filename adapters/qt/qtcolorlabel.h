// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/qt/colorswatch.h"
#include "adapters/qt/gatedcontrol.h"
#include "platform/widgets.h"

#include <QPointer>

namespace velt::qt {

class QtColorLabel final : public ColorLabel {
public:
    QtColorLabel(GatedControl& control, ColorSwatch* swatch);
    [[nodiscard]] OleColor BackColor() const override { return color_; }
    void BackColor(OleColor color) override;

private:
    QPointer<ColorSwatch> swatch_;
    OleColor color_ = 0xFFFFFF;
    QObject connections_;
};

}  // namespace velt::qt
