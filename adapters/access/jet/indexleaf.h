// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/access/jet/layout.h"
#include "adapters/access/jet/pagefile.h"

#include <cstdint>
#include <string_view>
#include <vector>

namespace velt::jet {

using IndexKey = std::vector<std::uint8_t>;

/// Appends an integer to a key so that keys order as the numbers do.
void appendKey(IndexKey& key, std::int32_t value);
/// Appends a text of letters, digits, blanks and underscores. RuntimeError 5 for others: how they
/// are ordered is not known here.
void appendKey(IndexKey& key, std::string_view text);

/// An index of one page, enough for the system tables of the files that are made here.
class IndexLeaf {
public:
    /// Bytes of an empty index of the table defined at `definitionPage`.
    [[nodiscard]] static std::vector<std::uint8_t> emptyPage(const Layout& layout,
                                                             std::uint32_t definitionPage);

    IndexLeaf(PageFile& file, std::uint32_t page) : file_(&file), page_(page) {}

    /// True when `count` more entries with keys of `keySize` bytes fit.
    [[nodiscard]] bool fits(std::size_t count, std::size_t keySize) const;
    /// Raises Damaged when the page is no such index or has no room.
    void insert(const IndexKey& key, RowPointer row);

private:
    [[nodiscard]] std::vector<std::uint8_t> readPage() const;

    PageFile* file_;
    std::uint32_t page_;
};

}  // namespace velt::jet
