// SPDX-License-Identifier: MIT
#pragma once

#include "platform/export.h"

#include <functional>
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
    /// Runs a handler of the control for an event that no widget of the host has raised. A host
    /// that reports the errors of its controls takes one that leaves the handler; by default it
    /// goes on to who raised the event.
    virtual void Handle(const std::function<void()>& handler) { handler(); }
};

}  // namespace velt
