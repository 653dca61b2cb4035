// SPDX-License-Identifier: MIT
#include "adapters/access/jet/numeric.h"

#include "adapters/access/jet/bytewriter.h"

#include <algorithm>

namespace velt::jet {

std::string numericText(Bytes stored, std::uint8_t scale) {
    std::array<std::uint32_t, 4> words{};
    for (std::size_t i = 0; i < words.size(); ++i) words[i] = u32At(&stored[1 + 4 * i]);

    std::string digits;  // lowest first
    const auto isZero = [&words] {
        return std::ranges::all_of(words, [](std::uint32_t word) { return word == 0; });
    };
    while (!isZero() || digits.size() <= scale) {
        std::uint64_t rest = 0;
        for (std::uint32_t& word : words) {
            const std::uint64_t value = rest << 32 | word;
            word = static_cast<std::uint32_t>(value / 10);
            rest = value % 10;
        }
        digits.push_back(static_cast<char>('0' + rest));
    }
    if (scale > 0) digits.insert(scale, 1, '.');
    const bool negative = stored[0] != 0;
    if (negative && digits.find_first_not_of("0.") != std::string::npos) digits.push_back('-');
    std::ranges::reverse(digits);
    return digits;
}

std::optional<std::array<std::uint8_t, NumericSize>> parseNumeric(std::string_view text,
                                                                  std::uint8_t precision,
                                                                  std::uint8_t scale) {
    const bool negative = text.starts_with('-');
    if (negative) text.remove_prefix(1);
    const std::size_t point = std::min(text.find('.'), text.size());
    std::string digits(text.substr(0, point));
    const std::string_view decimals = text.substr(std::min(point + 1, text.size()));
    if (digits.empty() || decimals.size() > scale) return {};
    digits += decimals;
    digits.append(scale - decimals.size(), '0');

    std::array<std::uint32_t, 4> words{};
    for (const char digit : digits) {
        if (digit < '0' || digit > '9') return {};
        std::uint64_t carry = static_cast<std::uint64_t>(digit - '0');
        for (std::size_t i = words.size(); i-- > 0;) {
            carry += std::uint64_t{words[i]} * 10;
            words[i] = static_cast<std::uint32_t>(carry);
            carry >>= 32;
        }
    }
    const std::size_t zeros = std::min(digits.find_first_not_of('0'), digits.size());
    if (digits.size() - zeros > precision) return {};

    std::array<std::uint8_t, NumericSize> stored{};
    stored[0] = negative ? 0x80 : 0;
    for (std::size_t i = 0; i < words.size(); ++i) putAt(&stored[1 + 4 * i], words[i]);
    return stored;
}

}  // namespace velt::jet
