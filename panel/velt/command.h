// SPDX-License-Identifier: MIT
#pragma once

#include "panel/velt/commandline.h"

#include <span>
#include <string_view>

namespace velt::cli {

/// Exit codes of the program.
inline constexpr int exitOk = 0;
inline constexpr int exitFailure = 1;  ///< what was asked for could not be done
inline constexpr int exitUsage = 2;    ///< the command line is wrong

/// One command of the program: a file of its own that defines it, and a line in commands.cpp.
struct Command {
    std::string_view name;
    std::string_view summary;  ///< one line for the program's own help
    std::string_view help;     ///< usage, options, examples
    std::span<const Option> options;
    /// Does the work. Failures are RuntimeError, wrong operands UsageError.
    void (*run)(const CommandLine& line);
};

[[nodiscard]] std::span<const Command* const> commands();

}  // namespace velt::cli
