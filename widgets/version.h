// SPDX-License-Identifier: MIT
#pragma once

#include "platform/export.h"

namespace velt {

/// Version of the library that is loaded, as "major.minor.patch".
[[nodiscard]] VELT_API const char* version();

}  // namespace velt
