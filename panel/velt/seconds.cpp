// SPDX-License-Identifier: MIT
#include "panel/velt/seconds.h"

#include "panel/velt/commandline.h"

#include <charconv>

namespace velt::cli {

std::chrono::milliseconds seconds(const std::string& option, const std::string& text) {
    constexpr double longest = 1e6;  // eleven days
    double value = 0.0;
    const char* const end = text.data() + text.size();
    const auto [read, error] = std::from_chars(text.data(), end, value);
    if (error != std::errc{} || read != end || !(value > 0.0 && value <= longest))
        throw UsageError(option + " must be a number of seconds above 0");
    return std::chrono::ceil<std::chrono::milliseconds>(std::chrono::duration<double>(value));
}

}  // namespace velt::cli
