// SPDX-License-Identifier: MIT
#include "adapters/qt/log.h"

namespace velt::qt {

Q_LOGGING_CATEGORY(logControls, "velt.controls")

}  // namespace velt::qt
