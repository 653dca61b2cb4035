// SPDX-License-Identifier: MIT
#pragma once

#include <QMainWindow>

class QLabel;

namespace velt::panel {

/// The window that hosts a form: shows on its status line the last error that left a control,
/// with its time, and calls Terminate() of each before it closes.
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
};

}  // namespace velt::panel
