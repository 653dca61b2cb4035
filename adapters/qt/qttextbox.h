// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/qt/text.h"
#include "platform/widgets.h"

#include <QLineEdit>
#include <QPointer>

namespace velt::qt {

class QtTextBox final : public TextBox {
public:
    explicit QtTextBox(QLineEdit* edit) : edit_(edit) {}
    /// "" once the widget is gone.
    [[nodiscard]] std::string Text() const override {
        return edit_ ? fromQt(edit_->text()) : std::string();
    }

private:
    QPointer<QLineEdit> edit_;
};

}  // namespace velt::qt
