// SPDX-License-Identifier: MIT
#include "adapters/access/plaintext.h"

#include "platform/conversions.h"

#include <array>
#include <cstdio>

namespace velt::access {

std::string plainText(double number) {
    static const Locale plain{.decimalSign = '.', .groupSign = '\0'};
    return conversions::text(number, plain);
}

std::string plainText(const Date& date) {
    if (!date.isValid()) return plainText(date.serial());
    const Date::Fields f = date.fields();
    std::array<char, 80> text{};
    std::snprintf(text.data(), text.size(), "%04d-%02d-%02d %02d:%02d:%02d", f.year, f.month, f.day,
                  f.hour, f.minute, f.second);
    return text.data();
}

}  // namespace velt::access
