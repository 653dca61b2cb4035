// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

namespace velt::access {

/// Byte strings, each stored once and numbered from 0 in the order of their first appearance.
/// What text() returns stays where it is as long as the dictionary lives.
class TextDictionary {
public:
    /// The number of `text`, which is added when it is new.
    [[nodiscard]] std::uint32_t intern(std::string_view text);
    [[nodiscard]] std::string_view text(std::uint32_t id) const { return texts_[id]; }
    [[nodiscard]] std::size_t size() const { return texts_.size(); }
    /// Memory taken, roughly.
    [[nodiscard]] std::size_t bytes() const;
    /// Frees what only adding needs; nothing can be added afterwards.
    void freeze();

private:
    std::string_view store(std::string_view text);
    void grow();

    std::vector<std::string_view> texts_;
    std::vector<std::uint32_t> hashes_;  ///< of texts_
    std::vector<std::uint32_t> slots_;   ///< open addressing; number + 1, 0 is free
    std::vector<std::unique_ptr<char[]>> chunks_;
    std::size_t chunkUsed_ = 0;
    std::size_t chunkSize_ = 0;
    std::size_t chunkBytes_ = 0;  ///< of all chunks
};

}  // namespace velt::access
