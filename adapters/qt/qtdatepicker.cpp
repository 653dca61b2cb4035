// SPDX-License-Identifier: MIT
#include "adapters/qt/qtdatepicker.h"

#include "adapters/qt/dates.h"

#include <QKeyEvent>
#include <QScopedValueRollback>

namespace velt::qt {
namespace {

/// Takes over what is being typed before a shortcut acts on it, which leaves the focus here.
class BeforeShortcuts final : public QObject {
public:
    explicit BeforeShortcuts(QDateTimeEdit* edit) : QObject(edit), edit_(edit) {
        edit->installEventFilter(this);
    }
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::ShortcutOverride &&
            static_cast<QKeyEvent*>(event)->modifiers() & Qt::AltModifier)
            edit_->interpretText();
        return QObject::eventFilter(watched, event);
    }

private:
    QDateTimeEdit* edit_;
};

}  // namespace

QtDatePicker::QtDatePicker(GatedControl& control, QDateTimeEdit* edit)
    : control_(control), edit_(edit) {
    edit->setTimeSpec(Qt::UTC);
    edit->setDateTimeRange(firstMoment(), lastMoment());
    // Not digit by digit: what a handler begins at the first one would swallow the next.
    edit->setKeyboardTracking(false);
    new BeforeShortcuts(edit);  // the editor's
    show();
    QObject::connect(edit, &QDateTimeEdit::dateTimeChanged, &connections_,
                     [this](const QDateTime& dateTime) { edited(dateTime); });
}

void QtDatePicker::Value(const Date& value) {
    value_ = value;
    show();
}

void QtDatePicker::show() {
    if (!edit_) return;
    const QScopedValueRollback showing(showing_, true);
    edit_->setDateTime(toQt(value_));
}

void QtDatePicker::edited(const QDateTime& dateTime) {
    if (showing_) return;
    if (control_.operatorInput([this] { Change.raise(); }))
        value_ = fromQt(dateTime);
    else
        show();
}

}  // namespace velt::qt
