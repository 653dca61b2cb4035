// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QString>
#include <QTimer>
#include <QWidget>

namespace velt::qt {

/// A small area in a colour, with a text on it, that can be pressed by mouse and keyboard. A click
/// is told when it can no longer become a double click.
class ColorSwatch : public QWidget {
    Q_OBJECT

public:
    explicit ColorSwatch(const QString& text, QWidget* parent = nullptr);

    void setColor(const QColor& color);
    [[nodiscard]] QSize sizeHint() const override { return {26, 20}; }
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

signals:
    /// Also by the space bar.
    void clicked();
    /// Also by Enter.
    void doubleClicked();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    QString text_;
    QColor color_ = Qt::white;
    QTimer single_;  ///< runs as long as a second click would make a double one
    bool pressed_ = false;
};

}  // namespace velt::qt
