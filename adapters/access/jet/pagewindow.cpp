// SPDX-License-Identifier: MIT
#include "adapters/access/jet/pagewindow.h"

namespace velt::jet {
namespace {

constexpr std::size_t PieceSize = std::size_t{256} * 1024;

}  // namespace

PageWindow::PageWindow(const PageReader& file) : file_(&file) {}

const std::uint8_t* PageWindow::ahead(std::span<const std::uint32_t> pages, std::size_t index) {
    const std::uint32_t page = pages[index];
    if (holds(page)) return at(page);
    const auto most = static_cast<std::uint32_t>(PieceSize / file_->layout().pageSize);
    // Up to the last page of the scan within the piece, so that nothing behind it is read.
    std::size_t last = std::min(index + most, pages.size()) - 1;
    while (pages[last] - page >= most) --last;
    return load(page, pages[last] - page + 1);
}

const std::uint8_t* PageWindow::single(std::uint32_t page) {
    return holds(page) ? at(page) : load(page, 1);
}

const std::uint8_t* PageWindow::load(std::uint32_t first, std::uint32_t count) {
    const std::size_t size = count * file_->layout().pageSize;
    if (bytes_.size() < size) bytes_.resize(size);
    count_ = 0;
    file_->read(first, std::span(bytes_).first(size));
    first_ = first;
    count_ = count;
    return bytes_.data();
}

const std::uint8_t* PageWindow::at(std::uint32_t page) const {
    return bytes_.data() + (page - first_) * file_->layout().pageSize;
}

}  // namespace velt::jet
