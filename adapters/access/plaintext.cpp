// SPDX-License-Identifier: MIT
#include "adapters/access/plaintext.h"

#include "platform/conversions.h"
#include "platform/isodate.h"

namespace velt::access {

std::string plainText(double number) {
    static const Locale plain{.decimalSign = '.', .groupSign = '\0'};
    return conversions::text(number, plain);
}

std::string plainText(const Date& date) {
    return date.isValid() ? isoText(date) : plainText(date.serial());
}

}  // namespace velt::access
