// SPDX-License-Identifier: MIT
#pragma once

#include <QLoggingCategory>

namespace velt::qt {

/// "velt.controls": what went wrong in a control without its own way to say so.
Q_DECLARE_LOGGING_CATEGORY(logControls)

}  // namespace velt::qt
