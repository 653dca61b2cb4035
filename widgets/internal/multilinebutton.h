// SPDX-License-Identifier: MIT
#pragma once

#include <QPushButton>

namespace velt::ui {

/// A push button that shows its caption on several lines: it breaks where two or more blanks stand
/// together. QPushButton by itself shows one line.
class MultiLineButton : public QPushButton {
    Q_OBJECT

public:
    explicit MultiLineButton(const QString& caption, QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] QString lines() const;
};

}  // namespace velt::ui
