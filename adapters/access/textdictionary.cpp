// SPDX-License-Identifier: MIT
#include "adapters/access/textdictionary.h"

#include "platform/runtimeerror.h"

#include <algorithm>
#include <cstring>
#include <functional>
#include <limits>

namespace velt::access {
namespace {

constexpr std::size_t FirstChunk = 1024;
constexpr std::size_t LargestChunk = 256 * 1024;
constexpr std::size_t FirstSlots = 64;

std::uint32_t hashOf(std::string_view text) {
    const std::size_t hash = std::hash<std::string_view>{}(text);
    return static_cast<std::uint32_t>(hash ^ (hash >> 32));
}

}  // namespace

std::uint32_t TextDictionary::intern(std::string_view text) {
    if (slots_.size() < 2 * (texts_.size() + 1)) grow();
    const std::uint32_t hash = hashOf(text);
    const std::size_t mask = slots_.size() - 1;
    std::size_t slot = hash & mask;
    for (; slots_[slot] != 0; slot = (slot + 1) & mask) {
        const std::uint32_t id = slots_[slot] - 1;
        if (hashes_[id] == hash && texts_[id] == text) return id;
    }
    // The largest number is left free, for lists that need a mark.
    if (texts_.size() >= std::numeric_limits<std::uint32_t>::max() - 1)
        throw RuntimeError(ErrorNumber::Overflow);
    const auto id = static_cast<std::uint32_t>(texts_.size());
    texts_.push_back(store(text));
    hashes_.push_back(hash);
    slots_[slot] = id + 1;
    return id;
}

std::size_t TextDictionary::bytes() const {
    return chunkBytes_ + texts_.capacity() * sizeof(texts_[0]) +
           (hashes_.capacity() + slots_.capacity()) * sizeof(std::uint32_t);
}

void TextDictionary::freeze() {
    texts_.shrink_to_fit();
    hashes_ = {};
    slots_ = {};
}

std::string_view TextDictionary::store(std::string_view text) {
    if (chunks_.empty() || chunkSize_ - chunkUsed_ < text.size()) {
        chunkSize_ =
            std::max(std::min(std::max(FirstChunk, chunkBytes_), LargestChunk), text.size());
        chunks_.push_back(std::make_unique<char[]>(chunkSize_));
        chunkBytes_ += chunkSize_;
        chunkUsed_ = 0;
    }
    char* place = chunks_.back().get() + chunkUsed_;
    std::copy(text.begin(), text.end(), place);
    chunkUsed_ += text.size();
    return {place, text.size()};
}

void TextDictionary::grow() {
    const std::size_t size = std::max(FirstSlots, slots_.size() * 2);
    slots_.assign(size, 0);
    for (std::uint32_t id = 0; id < texts_.size(); ++id) {
        std::size_t slot = hashes_[id] & (size - 1);
        while (slots_[slot] != 0) slot = (slot + 1) & (size - 1);
        slots_[slot] = id + 1;
    }
}

}  // namespace velt::access
