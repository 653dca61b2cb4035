// SPDX-License-Identifier: MIT
#include "widgets/internal/pickers.h"

#include "widgets/internal/facemaking.h"

#include <QLocale>

namespace velt::ui {
namespace {

QDateTimeEdit* makePicker(const char* name, const char* format, const char* accessibleName) {
    auto* edit = make<QDateTimeEdit>(name);
    edit->setLocale(QLocale(QLocale::Italian, QLocale::Italy));
    edit->setDisplayFormat(QLatin1String(format));
    edit->setAccessibleName(QLatin1String(accessibleName));
    return edit;
}

}  // namespace

QDateTimeEdit* makeDatePicker(const char* name, const char* accessibleName) {
    QDateTimeEdit* edit = makePicker(name, "dd/MM/yyyy", accessibleName);
    edit->setCalendarPopup(true);
    return edit;
}

QDateTimeEdit* makeTimePicker(const char* name, const char* accessibleName) {
    return makePicker(name, "HH.mm", accessibleName);
}

}  // namespace velt::ui
