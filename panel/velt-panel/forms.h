// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

class QWidget;

namespace velt::panel {

/// The form that the panel shows when it is given none.
[[nodiscard]] QWidget* makeBuiltInForm();

/// Loads a .ui file, with the VELT controls in it. Null on failure; `error` then says why.
[[nodiscard]] QWidget* loadForm(const QString& file, QString& error);

}  // namespace velt::panel
