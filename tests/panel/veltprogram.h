// SPDX-License-Identifier: MIT
#pragma once

#include "tests/program.h"

namespace velt::cli {

using test::Outcome;

/// runProgram() of the program `velt`.
[[nodiscard]] inline Outcome runVelt(std::vector<std::string> arguments,
                                     const std::function<void()>& prepare = {}) {
    return test::runProgram(VELT_PROGRAM, std::move(arguments), prepare);
}

}  // namespace velt::cli
