// SPDX-License-Identifier: MIT
#include "adapters/access/jet/rowfinder.h"

#include <algorithm>

namespace velt::jet {
namespace {

// A row that moves again is pointed to from its first place: one step is usual.
constexpr int MostMoves = 8;

}  // namespace

RowFinder::RowFinder(const Table::Content& table) : table_(&table), window_(*table.file) {}

bool RowFinder::next() {
    for (;;) {
        for (++row_; row_ < rows_; ++row_)
            if (!page_.isDeleted(row_)) return true;
        if (!nextPage()) return false;
    }
}

bool RowFinder::nextPage() {
    rows_ = 0;
    if (started_ && pageIndex_ < table_->pages.size()) ++pageIndex_;
    started_ = true;
    if (pageIndex_ >= table_->pages.size()) return false;
    enter(window_.ahead(table_->pages, pageIndex_));
    return true;
}

void RowFinder::enter(const std::uint8_t* page) {
    page_ = DataPage(page, table_->file->layout());
    // A page of another kind or owner was given back: it holds no rows of this table.
    rows_ = isOwn(page_) ? page_.rows() : 0;
    row_ = -1;
}

void RowFinder::rewind() {
    window_.clear();
    started_ = false;
    pageIndex_ = 0;
    rows_ = row_ = 0;
}

bool RowFinder::seek(RowId id) {
    const auto found = std::ranges::lower_bound(table_->pages, id.page);
    if (found == table_->pages.end() || *found != id.page) return false;
    started_ = true;
    pageIndex_ = static_cast<std::size_t>(found - table_->pages.begin());
    enter(window_.single(id.page));
    row_ = id.row;
    return id.row < rows_ && !page_.isDeleted(id.row);
}

RowId RowFinder::place() const {
    return {table_->pages[pageIndex_], static_cast<std::uint16_t>(row_)};
}

std::optional<Bytes> RowFinder::row() {
    const auto bytes = page_.bytes(row_);
    if (!page_.isMoved(row_)) return bytes;
    if (!bytes || bytes->size() < 4) return {};
    return follow(rowPointerAt(bytes->data()));
}

std::optional<Bytes> RowFinder::follow(RowPointer pointer) {
    for (int moves = 0; moves < MostMoves; ++moves) {
        if (pointer.page >= table_->file->pageCount()) return {};
        elsewhere_ = table_->file->page(pointer.page);
        const DataPage page(elsewhere_.data(), table_->file->layout());
        if (!isOwn(page) || pointer.row >= page.rows()) return {};
        // The row is marked as deleted there, so that a scan does not find it twice.
        const auto bytes = page.bytes(pointer.row);
        if (!page.isMoved(pointer.row)) return bytes;
        if (!bytes || bytes->size() < 4) return {};
        pointer = rowPointerAt(bytes->data());
    }
    return {};
}

}  // namespace velt::jet
