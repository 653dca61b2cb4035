// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtimeerror.h"

#include <cstdint>
#include <limits>

namespace velt {

/// Numbers for the items of a viewer. None is ever given twice, so that late data of a removed
/// item finds no row.
class ItemHandles {
public:
    explicit ItemHandles(std::int32_t last = 0) : last_(last) {}

    /// RuntimeError 6 when all are used up.
    [[nodiscard]] std::int32_t ProssimoHandle() {
        if (last_ == std::numeric_limits<std::int32_t>::max())
            throw RuntimeError(ErrorNumber::Overflow);
        return ++last_;
    }

private:
    std::int32_t last_;
};

}  // namespace velt
