// SPDX-License-Identifier: MIT
#include "adapters/access/textorder.h"

#include "adapters/access/collation.h"

#include <algorithm>
#include <numeric>

namespace velt::access {

std::vector<std::uint32_t> textOrder(const TextDictionary& texts) {
    std::vector<std::uint32_t> order(texts.size());
    std::iota(order.begin(), order.end(), 0U);
    std::ranges::stable_sort(order, [&texts](std::uint32_t a, std::uint32_t b) {
        return compareText(texts.text(a), texts.text(b)) < 0;
    });
    return order;
}

std::vector<std::uint32_t> textRanks(const TextDictionary& texts) {
    const std::vector<std::uint32_t> order = textOrder(texts);
    std::vector<std::uint32_t> ranks(order.size());
    for (std::size_t i = 1; i < order.size(); ++i) {
        const bool same = compareText(texts.text(order[i - 1]), texts.text(order[i])) == 0;
        ranks[order[i]] = ranks[order[i - 1]] + (same ? 0 : 1);
    }
    return ranks;
}

}  // namespace velt::access
