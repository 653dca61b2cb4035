// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/qt/gatedcontrol.h"
#include "platform/widgets.h"

#include <QAbstractButton>
#include <QPointer>

namespace velt::qt {

class QtButton final : public Button {
public:
    QtButton(GatedControl& control, QAbstractButton* button);
    [[nodiscard]] bool Enabled() const override { return enabled_; }
    void Enabled(bool enabled) override;

private:
    QPointer<QAbstractButton> button_;
    bool enabled_ = true;
    QObject connections_;  ///< ends them with this object
};

}  // namespace velt::qt
