// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <variant>
#include <vector>

namespace velt::access {

/// A growing list of small numbers in one, two or four bytes each, as the largest needs.
class PackedIds {
public:
    void push(std::uint32_t id) {
        if (auto* bytes = std::get_if<Bytes>(&ids_)) {
            if (id <= UINT8_MAX) return bytes->push_back(static_cast<std::uint8_t>(id));
            if (id <= UINT16_MAX)
                widen<Words>();
            else
                widen<Longs>();
        }
        if (auto* words = std::get_if<Words>(&ids_)) {
            if (id <= UINT16_MAX) return words->push_back(static_cast<std::uint16_t>(id));
            widen<Longs>();
        }
        std::get<Longs>(ids_).push_back(id);
    }

    [[nodiscard]] std::uint32_t operator[](std::size_t index) const {
        switch (ids_.index()) {
            case 0: return std::get<0>(ids_)[index];
            case 1: return std::get<1>(ids_)[index];
            default: return std::get<2>(ids_)[index];
        }
    }

    [[nodiscard]] std::size_t size() const {
        return std::visit([](const auto& ids) { return ids.size(); }, ids_);
    }
    [[nodiscard]] std::size_t bytes() const {
        return std::visit([](const auto& ids) { return ids.capacity() * sizeof(ids[0]); }, ids_);
    }
    /// Keeps at most the first `count`.
    void truncate(std::size_t count) {
        std::visit([count](auto& ids) { ids.resize(std::min(count, ids.size())); }, ids_);
    }
    void shrink() {
        std::visit([](auto& ids) { ids.shrink_to_fit(); }, ids_);
    }

private:
    using Bytes = std::vector<std::uint8_t>;
    using Words = std::vector<std::uint16_t>;
    using Longs = std::vector<std::uint32_t>;

    template <typename Wider>
    void widen() {
        ids_ = std::visit(
            [](const auto& ids) -> std::variant<Bytes, Words, Longs> {
                if constexpr (sizeof(ids[0]) <= sizeof(typename Wider::value_type)) {
                    Wider wider;
                    wider.reserve(ids.size() * 2 + 1);
                    wider.insert(wider.end(), ids.begin(), ids.end());
                    return wider;
                } else {
                    return ids;
                }
            },
            ids_);
    }

    std::variant<Bytes, Words, Longs> ids_;
};

}  // namespace velt::access
