// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/qt/gatedcontrol.h"
#include "platform/widgets.h"

#include <QCheckBox>
#include <QPointer>

namespace velt::qt {

/// Keeps its value when the check box is gone.
class QtCheckBox final : public CheckBox {
public:
    QtCheckBox(GatedControl& control, QCheckBox* box);
    [[nodiscard]] int Value() const override { return checked_ ? 1 : 0; }
    void Value(int value) override;

private:
    void show();

    QPointer<QCheckBox> box_;
    bool checked_;
    QObject connections_;
};

}  // namespace velt::qt
