// SPDX-License-Identifier: MIT
#include "panel/velt-panel/hostwindow.h"

#include "widgets/controlwidget.h"

#include <QCloseEvent>
#include <QStatusBar>

namespace velt::panel {

HostWindow::HostWindow(QWidget* form) {
    form->setWindowFlags(Qt::Widget);
    setWindowTitle(form->windowTitle().isEmpty() ? QStringLiteral("VELT Viewers")
                                                 : form->windowTitle());
    resize(form->size().expandedTo(QSize(1000, 640)));
    setCentralWidget(form);
    const auto controls = form->findChildren<ui::ControlWidget*>();
    for (ui::ControlWidget* control : controls) {
        connect(control, &ui::ControlWidget::runtimeError, this,
                [this, control](int number, const QString& description) {
                    statusBar()->showMessage(QStringLiteral("%1: errore %2: %3")
                                                 .arg(control->objectName())
                                                 .arg(number)
                                                 .arg(description));
                });
    }
    statusBar();
}

void HostWindow::closeEvent(QCloseEvent* event) {
    const auto controls = findChildren<ui::ControlWidget*>();
    for (ui::ControlWidget* control : controls) control->Terminate();
    event->accept();
}

}  // namespace velt::panel
