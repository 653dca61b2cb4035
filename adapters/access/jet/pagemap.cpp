// SPDX-License-Identifier: MIT
#include "adapters/access/jet/pagemap.h"

#include "adapters/access/jet/bytewriter.h"
#include "adapters/access/jet/datapage.h"
#include "adapters/access/jet/fileerror.h"
#include "adapters/access/jet/usagemap.h"

#include <algorithm>
#include <map>

namespace velt::jet {
namespace {

constexpr std::size_t InlineHead = 5;   // the type and the first page
constexpr std::size_t MapPageHead = 4;  // the page's type

void changeBit(std::uint8_t& byte, std::size_t bit, bool value) {
    const auto mask = static_cast<std::uint8_t>(1U << bit % 8);
    byte = static_cast<std::uint8_t>(value ? byte | mask : byte & ~mask);
}

}  // namespace

PageMap::PageMap(PageFile& file, RowPointer place) : file_(&file), page_(place.page) {
    if (place.page >= file.reader()->pageCount()) throw Damaged("manca la mappa delle pagine");
    const auto bytes = file.reader()->page(place.page);
    const DataPage page(bytes.data(), file.layout());
    const auto row = place.row < page.rows() ? page.bytes(place.row) : std::nullopt;
    if (!row || row->size() <= InlineHead || row->front() > 1)
        throw Damaged("manca la mappa delle pagine");
    offset_ = static_cast<std::size_t>(row->data() - bytes.data());
    row_.assign(row->begin(), row->end());
}

std::size_t PageMap::pagesPerMapPage() const {
    return (file_->layout().pageSize - MapPageHead) * 8;
}

bool PageMap::set(std::uint32_t page, bool value) {
    return isInline() ? setInline(page, value) : setInMapPage(page, value);
}

bool PageMap::setInline(std::uint32_t page, bool value) {
    const std::uint32_t first = u32At(&row_[1]);
    if (page < first || page - first >= (row_.size() - InlineHead) * 8) return false;
    const std::size_t at = InlineHead + (page - first) / 8;
    changeBit(row_[at], page - first, value);
    file_->write(page_, offset_ + at, Bytes(row_).subspan(at, 1));
    return true;
}

bool PageMap::setInMapPage(std::uint32_t page, bool value) {
    const std::size_t slot = page / pagesPerMapPage();
    if (1 + 4 * (slot + 1) > row_.size()) return false;
    const std::uint32_t number = u32At(&row_[1 + 4 * slot]);
    if (number == 0) return false;
    if (number != mapPage_) {
        mapBytes_ = file_->reader()->page(number);
        mapPage_ = number;
    }
    const std::size_t bit = page % pagesPerMapPage();
    const std::size_t at = MapPageHead + bit / 8;
    changeBit(mapBytes_[at], bit, value);
    file_->write(number, at, Bytes(mapBytes_).subspan(at, 1));
    return true;
}

void PageMap::moveWindow(std::uint32_t page, bool bits) {
    if (!isInline()) return;
    const std::uint32_t first = page / 8 * 8;
    putAt(&row_[1], first);
    std::fill(row_.begin() + InlineHead, row_.end(), static_cast<std::uint8_t>(bits ? 0xFF : 0));
    writeRow();
}

std::vector<std::uint32_t> PageMap::inlinePages() const {
    std::vector<std::uint32_t> pages;
    if (!isInline()) return pages;
    for (std::size_t bit = 0; bit < (row_.size() - InlineHead) * 8; ++bit)
        if ((row_[InlineHead + bit / 8] >> bit % 8 & 1) != 0)
            pages.push_back(u32At(&row_[1]) + static_cast<std::uint32_t>(bit));
    return pages;
}

void PageMap::extend(std::uint32_t page, const std::function<std::uint32_t()>& newPage) {
    std::vector<std::uint32_t> pages = inlinePages();
    pages.push_back(page);
    std::vector<std::uint8_t> row = row_;
    if (isInline()) {
        std::ranges::fill(row, std::uint8_t{0});
        row[0] = 1;
    }

    std::map<std::size_t, std::vector<std::uint8_t>> mapPages;  // by slot
    for (const std::uint32_t number : pages) {
        auto& bytes = mapPages[number / pagesPerMapPage()];
        if (bytes.empty()) {
            bytes.resize(file_->layout().pageSize);
            bytes[0] = static_cast<std::uint8_t>(PageType::Map);
            bytes[1] = 1;
        }
        const std::size_t bit = number % pagesPerMapPage();
        changeBit(bytes[MapPageHead + bit / 8], bit, true);
    }
    // The map pages are in the file before the row names them.
    for (const auto& [slot, bytes] : mapPages) {
        if (1 + 4 * (slot + 1) > row.size())
            throw fileError(ErrorNumber::PathAccess, file_->path(),
                            "ha raggiunto la dimensione massima");
        const std::uint32_t number = newPage();
        file_->write(number, 0, bytes);
        putAt(&row[1 + 4 * slot], number);
    }
    row_ = std::move(row);
    writeRow();
}

void PageMap::writeRow() { file_->write(page_, offset_, row_); }

}  // namespace velt::jet
