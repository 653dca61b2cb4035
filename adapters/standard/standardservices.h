// SPDX-License-Identifier: MIT
#pragma once

#include "platform/export.h"
#include "platform/services.h"

namespace velt {

/// The services of controls that are not given any: the real ones, made on first use and living
/// as long as the process. User-interface thread only.
[[nodiscard]] VELT_API Services& standardServices();

/// Gives the controls that go live from now on other ones; null: the real ones again. They must
/// outlive those controls.
VELT_API void setStandardServices(Services* services);

}  // namespace velt
