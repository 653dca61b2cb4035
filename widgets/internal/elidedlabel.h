// SPDX-License-Identifier: MIT
#pragma once

#include <QLabel>

namespace velt::ui {

/// A label of one line that never widens its window: a text that is too long ends in "…" and is
/// whole in the tool tip.
class ElidedLabel : public QLabel {
    Q_OBJECT

public:
    using QLabel::QLabel;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace velt::ui
