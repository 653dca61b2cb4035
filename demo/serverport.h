// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace velt::demo {

/// Whether nothing listens on the port of the local machine. To be asked before a server starts:
/// the library lets two servers share a port, and neither would notice.
[[nodiscard]] bool isPortFree(std::uint16_t port);

/// A port that is free now; RuntimeError when there is none.
[[nodiscard]] std::uint16_t freePort();

}  // namespace velt::demo
