// SPDX-License-Identifier: MIT
#include "panel/velt-panel/hostwindow.h"

#include "widgets/controlwidget.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QLabel>
#include <QScreen>
#include <QStatusBar>
#include <QTime>

namespace velt::panel {
namespace {

constexpr int BurstPause = 1000;  // ms; an error that comes sooner after another belongs to it
constexpr int HistorySize = 10;   // errors in the tool tip

}  // namespace

HostWindow::HostWindow(QWidget* form) : lastError_(new QLabel(this)) {
    form->setWindowFlags(Qt::Widget);
    setWindowTitle(form->windowTitle().isEmpty() ? QStringLiteral("VELT Viewers")
                                                 : form->windowTitle());
    QSize size = form->size().expandedTo(QSize(1000, 640));
    // Offscreen there is nothing to overflow: that screen's size is made up.
    if (QGuiApplication::platformName() != QLatin1String("offscreen"))
        size = size.boundedTo(screen()->availableSize());
    resize(size);
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
    const QTime now = QTime::currentTime();
    const QString text = QStringLiteral("%1  %2: errore %3: %4")
                             .arg(now.toString(QStringLiteral("HH.mm.ss")))
                             .arg(control)
                             .arg(number)
                             .arg(description.simplified());
    // What follows at once is mostly a consequence: the first of them tells why.
    const bool follows = control == burstControl_ && errorTime_.msecsTo(now) < BurstPause &&
                         errorTime_.msecsTo(now) >= 0;
    burst_ = follows ? burst_ + 1 : 0;
    if (!follows) burstText_ = text;
    burstControl_ = control;
    errorTime_ = now;
    lastError_->setText(
        burst_ == 0 ? burstText_
                    : QStringLiteral("%1  (e subito dopo altri %2)").arg(burstText_).arg(burst_));

    history_.prepend(text.toHtmlEscaped());
    while (history_.size() > HistorySize) history_.removeLast();
    lastError_->setToolTip(QStringLiteral("<p style='white-space:pre'>") +
                           history_.join(QLatin1Char('\n')) + QStringLiteral("</p>"));
}

void HostWindow::closeEvent(QCloseEvent* event) {
    const auto controls = findChildren<ui::ControlWidget*>();
    for (ui::ControlWidget* control : controls) control->Terminate();
    event->accept();
}

}  // namespace velt::panel
