// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace velt::cli {

/// Standard output, buffered. What cannot be written (a full disk, a reader that has gone, a closed
/// stream) raises RuntimeError 75: half an export must not pass for a whole one.
class Output {
public:
    void write(std::string_view text);
    /// Writes what is still buffered; must also be the last call.
    void finish();

    [[nodiscard]] static bool isTerminal();

private:
    std::string buffer_;
};

}  // namespace velt::cli
