// SPDX-License-Identifier: MIT
#include "panel/velt-panel/hostwindow.h"

#include "widgets/controlwidget.h"

#include <QCloseEvent>
#include <QLabel>
#include <QScreen>
#include <QStatusBar>
#include <QTime>

namespace velt::panel {

HostWindow::HostWindow(QWidget* form) : lastError_(new QLabel(this)) {
    form->setWindowFlags(Qt::Widget);
    setWindowTitle(form->windowTitle().isEmpty() ? QStringLiteral("VELT Viewers")
                                                 : form->windowTitle());
    resize(form->size().expandedTo(QSize(1000, 640)).boundedTo(screen()->availableSize()));
    setCentralWidget(form);
    const auto controls = form->findChildren<ui::ControlWidget*>();
    for (ui::ControlWidget* control : controls) {
        connect(control, &ui::ControlWidget::runtimeError, this,
                [this, control](int number, const QString& description) {
                    showError(control->objectName(), number, description);
                });
    }
    lastError_->setObjectName("lastError");
    lastError_->setTextFormat(Qt::PlainText);
    lastError_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    // A long text must not widen the window.
    lastError_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    statusBar()->addWidget(lastError_, 1);
}

void HostWindow::showError(const QString& control, int number, const QString& description) {
    const QString text = QStringLiteral("%1  %2: errore %3: %4")
                             .arg(QTime::currentTime().toString(QStringLiteral("HH.mm.ss")))
                             .arg(control)
                             .arg(number)
                             .arg(description.simplified());
    lastError_->setText(text);
    lastError_->setToolTip(text.toHtmlEscaped());
}

void HostWindow::closeEvent(QCloseEvent* event) {
    const auto controls = findChildren<ui::ControlWidget*>();
    for (ui::ControlWidget* control : controls) control->Terminate();
    event->accept();
}

}  // namespace velt::panel
