// SPDX-License-Identifier: MIT
#include "widgets/version.h"

namespace velt {

const char* version() { return VELT_VERSION; }

}  // namespace velt
