// SPDX-License-Identifier: MIT
#include "opcviewer/valuetext.h"

#include "platform/conversions.h"

#include <type_traits>
#include <variant>

namespace velt {
namespace {

template <typename T>
constexpr bool isVector = false;
template <typename T>
constexpr bool isVector<std::vector<T>> = true;

template <typename T>
std::string listText(const std::vector<T>& elements, const Locale& locale) {
    std::string text;
    std::string separator;
    for (const T& element : elements) {
        text += separator + conversions::text(Variant(element), locale);
        separator = "; ";
    }
    return "(" + text + ")";
}

}  // namespace

std::string FormattaValore(const Variant& value, const Locale& locale) {
    return std::visit(
        [&](const auto& held) {
            if constexpr (isVector<std::decay_t<decltype(held)>>)
                return listText(held, locale);
            else
                return conversions::text(value, locale);
        },
        value.storage());
}

}  // namespace velt
