// SPDX-License-Identifier: MIT
#pragma once

#include "platform/conversions.h"
#include "platform/settings.h"

#include <string>

namespace velt {

/// A whole number that stands as text in the settings file; unreadable text reads as `fallback`.
[[nodiscard]] inline int readNumber(Settings& settings, const std::string& key, int fallback) {
    const std::string text = settings.LeggiStringa(key, std::to_string(fallback));
    return conversions::plainInteger(text).value_or(fallback);
}

}  // namespace velt
