// SPDX-License-Identifier: MIT
#include "connviewer/linestate.h"

#include <iterator>

namespace velt {

const LineState* lineState(std::int32_t code) {
    using enum ButtonRule;
    static constexpr LineState states[] = {
        {"Disconnesso", AsRuntime, Disabled, AsRuntime},
        // A download may be asked for while the line is still being dialed.
        {"Dialing", Disabled, Enabled, AsRuntime},
        {"Connesso", Disabled, AsRuntime, AsRuntime},
        {"Modem occupato", Enabled, Disabled, AsRuntime},
        {"In disconnessione", Disabled, Disabled, Disabled},
        {"Downloading", Disabled, Disabled, Disabled},
    };
    return code >= 0 && code < std::ssize(states) ? &states[code] : nullptr;
}

}  // namespace velt
