// SPDX-License-Identifier: MIT
#include "adapters/qt/qtcheckbox.h"

namespace velt::qt {

QtCheckBox::QtCheckBox(GatedControl& control, QCheckBox* box)
    : box_(box), checked_(box->isChecked()) {
    QObject::connect(box, &QCheckBox::toggled, &connections_, [this, &control](bool checked) {
        if (checked == checked_) return;  // assigned
        if (control.operatorInput([this] { Click.raise(); }))
            checked_ = checked;
        else
            show();
    });
}

void QtCheckBox::Value(int value) {
    const bool checked = value != 0;
    if (checked == checked_) return;
    checked_ = checked;
    show();
    Click.raise();
}

void QtCheckBox::show() {
    if (box_) box_->setChecked(checked_);
}

}  // namespace velt::qt
