// SPDX-License-Identifier: MIT
#include "adapters/access/jet/rowappender.h"

#include "adapters/access/jet/bytewriter.h"
#include "adapters/access/jet/datapage.h"

#include <algorithm>

namespace velt::jet {
namespace {

constexpr std::size_t MostRows = 255;
constexpr std::size_t RoomWorthListing = 16;  // a part of the page
constexpr std::size_t FreeBytesAt = 2;
constexpr std::size_t OwnerAt = 4;

}  // namespace

RowAppender::RowAppender(PageAllocator& allocator, std::uint32_t owner, RowPointer ownedPages,
                         RowPointer freePages)
    : allocator_(&allocator),
      owner_(owner),
      owned_(allocator.file(), ownedPages),
      free_(allocator.file(), freePages) {}

std::size_t RowAppender::longestRow(const Layout& layout) {
    // A few bytes less than fit, as other writers keep it.
    return layout.pageSize - layout.rowOffsetsAt - 2 - 4;
}

void RowAppender::resume(std::uint32_t number) {
    std::vector<std::uint8_t> bytes = allocator_->file().reader()->page(number);
    const DataPage page(bytes.data(), layout());
    if (page.rows() == 0 || page.owner() != owner_) return;
    std::size_t lowest = layout().pageSize;
    for (int i = 0; i < page.rows(); ++i) {
        const auto row = page.bytes(i);
        if (!row) return;
        lowest = static_cast<std::size_t>(row->data() - bytes.data());
    }
    number_ = number;
    page_ = std::move(bytes);
    rows_ = rowsInFile_ = static_cast<std::size_t>(page.rows());
    lowest_ = lowestInFile_ = lowest;
    inFile_ = listedAsFree_ = true;
}

bool RowAppender::fits(std::size_t size) const {
    return number_ != 0 && rows_ < MostRows &&
           layout().rowOffsetsAt + 2 * (rows_ + 1) + size <= lowest_;
}

RowPointer RowAppender::append(Bytes row) {
    if (!fits(row.size())) beginPage();
    lowest_ -= row.size();
    std::ranges::copy(row, page_.begin() + static_cast<std::ptrdiff_t>(lowest_));
    putAt(&page_[layout().rowOffsetsAt + 2 * rows_], static_cast<std::uint16_t>(lowest_));
    ++rows_;
    const std::size_t used = layout().rowOffsetsAt + 2 * rows_;
    putAt(&page_[FreeBytesAt], static_cast<std::uint16_t>(lowest_ - used));
    putAt(&page_[layout().rowCountAt], static_cast<std::uint16_t>(rows_));
    return {number_, static_cast<std::uint8_t>(rows_ - 1)};
}

void RowAppender::beginPage() {
    if (number_ != 0) {
        writeRows();
        if (listedAsFree_) listAsFree(false);
        number_ = 0;
    }
    const std::uint32_t number = allocator_->takePage();
    page_.assign(layout().pageSize, 0);
    page_[0] = static_cast<std::uint8_t>(PageType::Data);
    page_[1] = 1;
    putAt(&page_[OwnerAt], owner_);
    number_ = number;
    rows_ = rowsInFile_ = 0;
    lowest_ = layout().pageSize;
    inFile_ = false;
}

void RowAppender::flush() {
    if (number_ == 0) return;
    writeRows();
    const std::size_t room = lowest_ - layout().rowOffsetsAt - 2 * rows_;
    if (!listedAsFree_ && room >= layout().pageSize / RoomWorthListing) listAsFree(true);
}

void RowAppender::writeRows() {
    if (!inFile_)
        writePage();
    else if (rowsInFile_ < rows_)
        writeNewRows();
    rowsInFile_ = rows_;
    lowestInFile_ = lowest_;
}

void RowAppender::writePage() {
    allocator_->file().write(number_, 0, page_);
    if (!owned_.set(number_, true))
        owned_.extend(number_, [this] { return allocator_->takePage(); });
    inFile_ = true;
}

void RowAppender::writeNewRows() {
    PageFile& file = allocator_->file();
    const Bytes bytes(page_);
    const std::size_t offsets = layout().rowOffsetsAt + 2 * rowsInFile_;
    file.write(number_, lowest_, bytes.subspan(lowest_, lowestInFile_ - lowest_));
    file.write(number_, offsets, bytes.subspan(offsets, 2 * (rows_ - rowsInFile_)));
    file.write(number_, FreeBytesAt, bytes.subspan(FreeBytesAt, 2));
    file.write(number_, layout().rowCountAt, bytes.subspan(layout().rowCountAt, 2));
}

/// The map of pages with room is a hint for other writers: an inline one follows the last page.
void RowAppender::listAsFree(bool value) {
    if (!free_.set(number_, value) && value) {
        free_.moveWindow(number_, false);
        static_cast<void>(free_.set(number_, true));
    }
    listedAsFree_ = value;
}

}  // namespace velt::jet
