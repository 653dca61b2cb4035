// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/qt/gate.h"
#include "platform/messagebox.h"

namespace velt::qt {

/// A modal message over the window of the control that shows it. While it is open a handler is
/// inside the gate; a termination closes it.
class VELT_API QtMessageBox final : public MessageBox {
public:
    explicit QtMessageBox(Gate& gate = Gate::ofProcess()) : gate_(gate) {}
    void Show(const std::string& text, int style, const std::string& title) override;

private:
    Gate& gate_;
};

}  // namespace velt::qt
