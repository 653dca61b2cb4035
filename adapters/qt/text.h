// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <string>

namespace velt::qt {

/// Between the UTF-8 text of the logic and Qt's.
[[nodiscard]] inline QString toQt(const std::string& text) { return QString::fromStdString(text); }
[[nodiscard]] inline std::string fromQt(const QString& text) { return text.toStdString(); }

}  // namespace velt::qt
