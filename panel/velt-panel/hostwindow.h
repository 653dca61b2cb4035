// SPDX-License-Identifier: MIT
#pragma once

#include <QMainWindow>
#include <QStringList>
#include <QTime>

class QLabel;

namespace velt::panel {

/// The window that hosts a form: shows on its status line the last error that left a control,
/// with its time (of a burst the first one; the tool tip has the ten newest), and calls Terminate()
/// of each before it closes.
class HostWindow final : public QMainWindow {
    Q_OBJECT
public:
    /// Takes the form. A form that is a main window itself is shown inside all the same.
    explicit HostWindow(QWidget* form);

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void showError(const QString& control, int number, const QString& description);

    QLabel* lastError_;
    QString burstControl_;
    QString burstText_;  ///< the first error of a burst
    int burst_ = 0;      ///< how many have followed it
    QTime errorTime_;    ///< of the newest
    QStringList history_;
};

}  // namespace velt::panel
