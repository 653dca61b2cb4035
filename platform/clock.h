// SPDX-License-Identifier: MIT
#pragma once

#include "platform/date.h"
#include "platform/export.h"

namespace velt {

class VELT_API Clock {
public:
    virtual ~Clock() = default;
    /// The present moment in civil time.
    [[nodiscard]] virtual Date now() = 0;
};

/// The machine's clock in its local time zone.
class VELT_API SystemClock final : public Clock {
public:
    [[nodiscard]] Date now() override;
};

}  // namespace velt
