// SPDX-License-Identifier: MIT
#include "adapters/qt/qtbutton.h"

namespace velt::qt {

QtButton::QtButton(GatedControl& control, QAbstractButton* button)
    : button_(button), enabled_(button->isEnabledTo(button->parentWidget())) {
    QObject::connect(button, &QAbstractButton::clicked, &connections_,
                     [this, &control] { control.operatorInput([this] { Click.raise(); }); });
}

void QtButton::Enabled(bool enabled) {
    enabled_ = enabled;
    if (button_) button_->setEnabled(enabled);
}

}  // namespace velt::qt
