// SPDX-License-Identifier: MIT
#include "adapters/access/jet/indexleaf.h"

#include "adapters/access/jet/bytes.h"
#include "adapters/access/jet/bytewriter.h"
#include "platform/runtimeerror.h"

#include <algorithm>
#include <array>
#include <string>

namespace velt::jet {
namespace {

constexpr std::size_t FreeBytesAt = 2;
constexpr std::size_t DefinitionAt = 4;
constexpr std::size_t EndsAt = 27;  // a bit for each byte behind EntriesAt: an entry ends before it
constexpr std::size_t EntriesAt = 480;
constexpr std::size_t PointerSize = 4;
constexpr std::uint8_t Ascending = 0x7F;

/// Where letters, digits and blanks stand in the general sort order, case ignored.
void appendSortCode(IndexKey& key, char c) {
    constexpr std::array<std::uint8_t, 26> Letters{
        0x4A, 0x4C, 0x4D, 0x4F, 0x51, 0x53, 0x55, 0x57, 0x59, 0x5B, 0x5C, 0x5E, 0x60,
        0x62, 0x64, 0x66, 0x68, 0x69, 0x6B, 0x6D, 0x6F, 0x71, 0x73, 0x75, 0x76, 0x78};
    if (c >= 'a' && c <= 'z')
        key.push_back(Letters[static_cast<std::size_t>(c - 'a')]);
    else if (c >= 'A' && c <= 'Z')
        key.push_back(Letters[static_cast<std::size_t>(c - 'A')]);
    else if (c >= '0' && c <= '9')
        key.push_back(static_cast<std::uint8_t>(0x36 + 2 * (c - '0')));
    else if (c == ' ')
        key.push_back(0x07);
    else if (c == '_')
        key.insert(key.end(), {0x2B, 0x03});
    else
        throw RuntimeError(ErrorNumber::InvalidCall,
                           "Il nome di una tabella può contenere solo lettere senza accento, "
                           "cifre, spazi e trattini bassi.");
}

std::vector<IndexKey> entriesOf(const std::vector<std::uint8_t>& page) {
    std::vector<IndexKey> entries;
    std::size_t begin = EntriesAt;
    for (std::size_t end = EntriesAt; end < page.size(); ++end) {
        const std::size_t bit = end - EntriesAt;
        if ((page[EndsAt + bit / 8] >> bit % 8 & 1) == 0) continue;
        entries.emplace_back(page.begin() + static_cast<std::ptrdiff_t>(begin),
                             page.begin() + static_cast<std::ptrdiff_t>(end));
        begin = end;
    }
    return entries;
}

bool comesBefore(const IndexKey& a, const IndexKey& b) {
    const auto [x, y] = std::ranges::mismatch(a, b);
    return y != b.end() && (x == a.end() || *x < *y);
}

}  // namespace

void appendKey(IndexKey& key, std::int32_t value) {
    const std::uint32_t bits = static_cast<std::uint32_t>(value) ^ 0x80000000U;
    key.push_back(Ascending);
    for (const unsigned shift : {24U, 16U, 8U, 0U})
        key.push_back(static_cast<std::uint8_t>(bits >> shift & 0xFF));
}

void appendKey(IndexKey& key, std::string_view text) {
    key.push_back(Ascending);
    for (const char c : text) appendSortCode(key, c);
    key.insert(key.end(), {0x01, 0x00});
}

std::vector<std::uint8_t> IndexLeaf::emptyPage(const Layout& layout, std::uint32_t definitionPage) {
    std::vector<std::uint8_t> page(layout.pageSize);
    page[0] = static_cast<std::uint8_t>(PageType::IndexLeaf);
    page[1] = 1;
    putAt(&page[FreeBytesAt], static_cast<std::uint16_t>(layout.pageSize - EntriesAt));
    putAt(&page[DefinitionAt], definitionPage);
    return page;
}

std::vector<std::uint8_t> IndexLeaf::readPage() const {
    auto page = file_->reader()->page(page_);
    if (page[0] != static_cast<std::uint8_t>(PageType::IndexLeaf)) throw Damaged("manca un indice");
    return page;
}

bool IndexLeaf::fits(std::size_t count, std::size_t keySize) const {
    std::size_t used = count * (keySize + PointerSize);
    for (const IndexKey& entry : entriesOf(readPage())) used += entry.size();
    return EntriesAt + used < file_->layout().pageSize;
}

void IndexLeaf::insert(const IndexKey& key, RowPointer row) {
    if (!fits(1, key.size())) throw Damaged("un indice è pieno");
    const auto old = readPage();
    std::vector<IndexKey> entries = entriesOf(old);
    IndexKey entry = key;
    for (const unsigned shift : {16U, 8U, 0U})
        entry.push_back(static_cast<std::uint8_t>(row.page >> shift & 0xFF));
    entry.push_back(row.row);
    entries.insert(std::ranges::upper_bound(entries, entry, comesBefore), entry);

    auto page = emptyPage(file_->layout(), u32At(&old[DefinitionAt]));
    std::size_t end = EntriesAt;
    for (const IndexKey& each : entries) {
        std::ranges::copy(each, page.begin() + static_cast<std::ptrdiff_t>(end));
        end += each.size();
        const std::size_t bit = end - EntriesAt;
        page[EndsAt + bit / 8] = static_cast<std::uint8_t>(page[EndsAt + bit / 8] | 1U << bit % 8);
    }
    putAt(&page[FreeBytesAt], static_cast<std::uint16_t>(page.size() - end));
    file_->write(page_, 0, page);
}

}  // namespace velt::jet
