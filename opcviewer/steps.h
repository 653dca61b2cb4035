// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtimeerror.h"

namespace velt {

/// Runs one step whose failure is to be skipped, as ignoreErrors does. But a cancelled step goes
/// on as an error: the operator, or the end of the control, means the whole operation.
template <typename Step>
void skipFailure(Step&& step) {
    try {
        step();
    } catch (const RuntimeError& error) {
        if (error.is(ErrorNumber::Cancelled)) throw;
    }
}

}  // namespace velt
