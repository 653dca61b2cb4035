// SPDX-License-Identifier: MIT
#include "adapters/qt/qtdatepicker.h"

#include "adapters/qt/dates.h"

#include <QScopedValueRollback>

namespace velt::qt {

QtDatePicker::QtDatePicker(GatedControl& control, QDateTimeEdit* edit)
    : control_(control), edit_(edit) {
    edit->setTimeSpec(Qt::UTC);
    edit->setDateTimeRange(firstMoment(), lastMoment());
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
