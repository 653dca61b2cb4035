// SPDX-License-Identifier: MIT
#pragma once

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace velt::jet {

/// Puts an unsigned number in little-endian order; the caller has checked the place.
template <std::unsigned_integral T>
void putAt(std::uint8_t* place, T value) {
    for (std::size_t i = 0; i < sizeof(T); ++i)
        place[i] = static_cast<std::uint8_t>(static_cast<std::uint64_t>(value) >> 8 * i);
}

template <std::unsigned_integral T>
void put(std::vector<std::uint8_t>& out, T value) {
    out.resize(out.size() + sizeof(T));
    putAt(out.data() + out.size() - sizeof(T), value);
}

}  // namespace velt::jet
