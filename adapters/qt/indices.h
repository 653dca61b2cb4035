// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtimeerror.h"

#include <iterator>

namespace velt::qt {

/// The element at `index` from 0; RuntimeError 9 when there is none.
template <typename Container>
auto& elementAt(Container& container, int index) {
    if (index < 0 || index >= std::ssize(container))
        throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
    return *(std::begin(container) + index);
}

}  // namespace velt::qt
