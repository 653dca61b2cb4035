// SPDX-License-Identifier: MIT
#include "adapters/access/jet/numeric.h"

#include <algorithm>
#include <array>

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

}  // namespace velt::jet
