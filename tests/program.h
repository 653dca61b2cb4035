// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace velt::test {

struct Outcome {
    int exitCode = -1;  ///< minus the signal's number when one ended the program
    std::string output;
    std::string error;
};

/// Runs a program and waits for its end. `prepare` runs in its process before it starts, to change
/// what it will find (such as its standard output).
[[nodiscard]] Outcome runProgram(std::string program, std::vector<std::string> arguments,
                                 const std::function<void()>& prepare = {});

}  // namespace velt::test
