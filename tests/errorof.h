// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtimeerror.h"

#include <optional>

namespace velt {

/// The number of the RuntimeError that `call` raises; nothing when it raises none.
template <typename Call>
[[nodiscard]] std::optional<ErrorNumber> errorOf(Call&& call) {
    try {
        call();
    } catch (const RuntimeError& error) {
        return static_cast<ErrorNumber>(error.Number());
    }
    return std::nullopt;
}

/// The RuntimeError that `call` raises; one of number 0 when it raises none.
template <typename Call>
[[nodiscard]] RuntimeError raisedBy(Call&& call) {
    try {
        call();
    } catch (const RuntimeError& error) {
        return error;
    }
    return {0, "none"};
}

}  // namespace velt
