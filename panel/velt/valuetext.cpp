// SPDX-License-Identifier: MIT
#include "panel/velt/valuetext.h"

#include "platform/isodate.h"
#include "platform/runtimeerror.h"

#include <array>
#include <charconv>
#include <cmath>
#include <type_traits>
#include <variant>

namespace velt::cli {
namespace {

/// With an exponent only where there would be many zeros.
template <typename Number>
std::string shortest(Number number) {
    std::array<char, 64> buffer{};
    char* const start = buffer.data();
    if constexpr (std::is_floating_point_v<Number>) {
        const Number size = std::abs(number);
        const bool plain = size == 0 || (size >= Number(1e-5) && size < Number(1e16));
        const auto form = plain ? std::chars_format::fixed : std::chars_format::general;
        return {start, std::to_chars(start, start + buffer.size(), number, form).ptr};
    } else {
        return {start, std::to_chars(start, start + buffer.size(), number).ptr};
    }
}

}  // namespace

std::string valueText(const Variant& value) {
    return std::visit(
        [](const auto& held) -> std::string {
            using T = std::decay_t<decltype(held)>;
            if constexpr (std::is_same_v<T, std::monostate> || std::is_same_v<T, Null>)
                return "";
            else if constexpr (std::is_same_v<T, std::string>)
                return held;
            else if constexpr (std::is_same_v<T, bool>)
                return held ? "1" : "0";
            else if constexpr (std::is_same_v<T, Date>)
                return held.isValid() ? isoText(held) : shortest(held.serial());
            else if constexpr (std::is_arithmetic_v<T>)
                return shortest(held);
            else
                throw RuntimeError(ErrorNumber::TypeMismatch);  // no field holds an array
        },
        value.storage());
}

bool isNumber(const Variant& value) {
    return std::visit(
        [](const auto& held) { return std::is_arithmetic_v<std::decay_t<decltype(held)>>; },
        value.storage());
}

}  // namespace velt::cli
