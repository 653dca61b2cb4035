// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/qt/gate.h"
#include "platform/widgets.h"

namespace velt::qt {

/// A modal colour dialog over the window of the control that shows it. While it is open a handler
/// is inside the gate; a termination closes it.
class QtColorDialog final : public ColorDialog {
public:
    explicit QtColorDialog(Gate& gate = Gate::ofProcess()) : gate_(gate) {}
    [[nodiscard]] std::optional<OleColor> ShowColor(OleColor preset) override;

private:
    Gate& gate_;
};

}  // namespace velt::qt
