// SPDX-License-Identifier: MIT
#pragma once

#include "platform/export.h"

#include <cstdint>

namespace velt {

/// What a button does in a line state.
enum class ButtonRule {
    Disabled,
    Enabled,
    AsRuntime,  ///< enabled while the link to the runtime is up
};

/// How a connection viewer shows a station's line.
struct LineState {
    const char* caption;
    ButtonRule cmdConnetti;
    ButtonRule cmdDisconnetti;
    ButtonRule cmdDownload;  ///< cmdDownloadAll follows it
};

/// The row of a state code of the runtime (0 disconnected, 1 dialing, 2 connected, 3 modem busy, 4
/// disconnecting, 5 downloading); null for any other.
[[nodiscard]] VELT_API const LineState* lineState(std::int32_t code);

}  // namespace velt
