// SPDX-License-Identifier: MIT
#include "adapters/qt/inputdiscarder.h"

#include <QApplication>
#include <QMouseEvent>
#include <QWindow>

namespace velt::qt {

InputDiscarder::~InputDiscarder() {
    if (installed_ && qApp) qApp->removeEventFilter(this);
}

void InputDiscarder::switchOn() {
    modalBefore_ = QApplication::activeModalWidget();
    spared_ = nullptr;
    on_ = true;
    if (!installed_) qApp->installEventFilter(this);
    installed_ = true;
}

void InputDiscarder::switchOff() { on_ = false; }

bool InputDiscarder::reaches(QObject* watched) const {
    const auto isIn = [watched](const QWidget* window) {
        const auto* widget = qobject_cast<QWidget*>(watched);
        return window && (widget ? widget->window() == window : watched == window->windowHandle());
    };
    const QWidget* modal = QApplication::activeModalWidget();
    return isIn(spared_) || (modal != modalBefore_ && isIn(modal));
}

bool InputDiscarder::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonDblClick:
            if (!on_ || reaches(watched)) return false;
            pressed_ |= static_cast<QMouseEvent*>(event)->button();
            return true;
        case QEvent::MouseButtonRelease: {
            // The release of a press from before the wait goes through: a button must come up.
            const Qt::MouseButton button = static_cast<QMouseEvent*>(event)->button();
            const bool discard = pressed_.testFlag(button);
            // The window gets the event first and hands it on to the widget: both are stopped,
            // since the widget's never comes to be.
            pressed_.setFlag(button, false);
            return discard;
        }
        case QEvent::KeyPress:
        case QEvent::ShortcutOverride:
        case QEvent::Shortcut:
        case QEvent::Wheel:
        case QEvent::ContextMenu:
        case QEvent::TouchBegin:
        case QEvent::TouchUpdate:
        case QEvent::TabletPress:
        case QEvent::DragEnter:
        case QEvent::Drop:
        case QEvent::InputMethod: return on_ && !reaches(watched);
        default: return false;
    }
}

}  // namespace velt::qt
