// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace velt::ui {

/// The filter of a Qt file dialog for pairs "description|pattern" that are all separated by "|".
[[nodiscard]] QString fileFilter(const QString& pairs);

}  // namespace velt::ui
