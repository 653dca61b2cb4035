// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

namespace velt {

/// A station of the runtime's project.
struct clsVRX {
    std::string Nome;
    std::int32_t StatoLinea = 0;  ///< line state as last reported, see LineState
};

}  // namespace velt
