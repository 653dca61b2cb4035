// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/qt/text.h"
#include "platform/widgets.h"

#include <QLabel>
#include <QPointer>

#include <string>

namespace velt::qt {

class QtLabel final : public Label {
public:
    explicit QtLabel(QLabel* label) : label_(label), caption_(fromQt(label->text())) {}
    [[nodiscard]] std::string Caption() const override { return caption_; }
    void Caption(const std::string& text) override {
        caption_ = text;
        if (label_) label_->setText(toQt(text));
    }

private:
    QPointer<QLabel> label_;
    std::string caption_;
};

}  // namespace velt::qt
