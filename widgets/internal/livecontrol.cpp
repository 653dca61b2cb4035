// SPDX-License-Identifier: MIT
#include "widgets/internal/livecontrol.h"

#include "adapters/qt/text.h"

namespace velt::ui {

LiveControl::LiveControl(ControlWidget& widget) : GatedControl(&widget) {}

ControlWidget* LiveControl::controlWidget() const {
    return isClosed() ? nullptr : static_cast<ControlWidget*>(widget());
}

bool LiveControl::UserMode() const {
    const ControlWidget* widget = controlWidget();
    return widget && !widget->isDesignMode();
}

std::string LiveControl::DisplayName() const {
    const ControlWidget* widget = controlWidget();
    return widget ? qt::fromQt(widget->objectName()) : std::string();
}

void LiveControl::announce(const RuntimeError& error) {
    if (ControlWidget* widget = controlWidget())
        emit widget->runtimeError(error.Number(), qt::toQt(error.Description()));
}

}  // namespace velt::ui
