// SPDX-License-Identifier: MIT
#pragma once

#include <QPushButton>

#include <utility>
#include <vector>

namespace velt::ui {

/// A widget by the name under which forms and tests know it.
template <typename Widget, typename... Args>
Widget* make(const char* name, Args&&... args) {
    auto* widget = new Widget(std::forward<Args>(args)...);
    widget->setObjectName(QLatin1String(name));
    return widget;
}

/// Without this Enter would press the first button of a dialog that hosts the control.
inline QPushButton* plainButton(QPushButton* button) {
    button->setAutoDefault(false);
    return button;
}

/// Tab goes through `widgets` in this order.
inline void orderTabs(const std::vector<QWidget*>& widgets) {
    for (std::size_t i = 1; i < widgets.size(); ++i)
        QWidget::setTabOrder(widgets[i - 1], widgets[i]);
}

}  // namespace velt::ui
