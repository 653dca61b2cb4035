// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>

namespace velt::qt {

/// Throws away what the operator does to the windows of the program while it is switched on. The
/// progress window stays in use, and so does a modal window of the host's that has opened
/// meanwhile.
class InputDiscarder : public QObject {
public:
    InputDiscarder() = default;
    ~InputDiscarder() override;

    void switchOn();
    void switchOff();
    /// Until the next switchOn().
    void spare(QWidget* progress) { spared_ = progress; }

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    [[nodiscard]] bool reaches(QObject* watched) const;

    bool on_ = false;
    bool installed_ = false;
    QPointer<QWidget> modalBefore_;
    QPointer<QWidget> spared_;
    /// Buttons whose press was thrown away: their release must be too, even after switchOff().
    Qt::MouseButtons pressed_ = Qt::NoButton;
};

}  // namespace velt::qt
