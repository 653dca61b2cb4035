// SPDX-License-Identifier: MIT
#pragma once

#include <QMainWindow>

namespace velt::panel {

/// The window that hosts a form: shows on its status line the errors that leave the controls, and
/// calls Terminate() of each before it closes.
class HostWindow final : public QMainWindow {
    Q_OBJECT
public:
    /// Takes the form. A form that is a main window itself is shown inside all the same.
    explicit HostWindow(QWidget* form);

protected:
    void closeEvent(QCloseEvent* event) override;
};

}  // namespace velt::panel
