// SPDX-License-Identifier: MIT
#pragma once

#include "platform/export.h"

#include <string>

namespace velt {

/// What a host tells its controls about their surroundings.
class VELT_API Ambient {
public:
    virtual ~Ambient() = default;
    /// True at run time, false in a form designer.
    [[nodiscard]] virtual bool UserMode() const = 0;
    /// The name that the host gives this instance of the control.
    [[nodiscard]] virtual std::string DisplayName() const = 0;
};

}  // namespace velt
