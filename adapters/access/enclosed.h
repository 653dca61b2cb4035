// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace velt::access {

/// `text` between two marks, with those in it doubled: a text or a name within a statement.
[[nodiscard]] inline std::string enclosed(std::string_view text, char mark) {
    std::string result(1, mark);
    for (const char c : text) {
        if (c == mark) result += mark;
        result += c;
    }
    return result + mark;
}

}  // namespace velt::access
