// SPDX-License-Identifier: MIT
#pragma once

#include "platform/export.h"
#include "platform/services.h"

#include <string>

namespace velt {

/// The services of controls that are not given any: the real ones, made on first use and living
/// as long as the process. User-interface thread only.
[[nodiscard]] VELT_API Services& standardServices();

/// Gives the controls that go live from now on other ones; null: the real ones again. They must
/// outlive those controls.
VELT_API void setStandardServices(Services* services);

/// The file with security, user and password of OPC connections (docs/opc.md) for the viewers that
/// make their first connection from now on; "" for none. Without this call the environment variable
/// VELT_OPC_CONFIG names it.
VELT_API void setOpcConfiguration(std::string path);

}  // namespace velt
