// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <string>

namespace velt::cli {

/// The value of an option that is a time; UsageError unless it is a number above 0.
[[nodiscard]] std::chrono::milliseconds seconds(const std::string& option, const std::string& text);

}  // namespace velt::cli
