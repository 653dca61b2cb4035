// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/access/textdictionary.h"

#include <cstdint>
#include <vector>

namespace velt::access {

/// The numbers of a dictionary's texts in the order of compareText(), those that compare equal in
/// the order of their first appearance.
[[nodiscard]] std::vector<std::uint32_t> textOrder(const TextDictionary& texts);

/// By number in the dictionary: the place of a text among the different ones, the same for texts
/// that compare equal.
[[nodiscard]] std::vector<std::uint32_t> textRanks(const TextDictionary& texts);

}  // namespace velt::access
