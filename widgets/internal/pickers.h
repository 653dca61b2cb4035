// SPDX-License-Identifier: MIT
#pragma once

#include <QDateTimeEdit>

namespace velt::ui {

/// Pickers as operators know them: a date, "14/03/2006", and a time of day, "07.30".
[[nodiscard]] QDateTimeEdit* makeDatePicker(const char* name, const char* accessibleName);
[[nodiscard]] QDateTimeEdit* makeTimePicker(const char* name, const char* accessibleName);

}  // namespace velt::ui
