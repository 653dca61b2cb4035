// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/access/jet/bytes.h"
#include "adapters/access/jet/layout.h"

#include <algorithm>
#include <optional>

namespace velt::jet {

/// The rows of one data page. Only looks at the bytes; the page must outlive it.
class DataPage {
public:
    DataPage() = default;
    DataPage(const std::uint8_t* page, const Layout& layout) : page_(page), layout_(&layout) {
        if (page[0] != static_cast<std::uint8_t>(PageType::Data)) return;
        const std::size_t room = (layout.pageSize - layout.rowOffsetsAt) / 2;
        rows_ = static_cast<int>(std::min<std::size_t>(u16At(page + layout.rowCountAt), room));
    }

    /// 0 when this is no data page.
    [[nodiscard]] int rows() const { return rows_; }
    /// The definition page of the table that the page belongs to.
    [[nodiscard]] std::uint32_t owner() const { return u32At(page_ + 4); }
    [[nodiscard]] bool isDeleted(int row) const { return (word(row) & 0x8000) != 0; }
    /// The row went elsewhere; its bytes are a RowPointer.
    [[nodiscard]] bool isMoved(int row) const { return (word(row) & 0x4000) != 0; }

    /// The bytes of a row, deleted or not; nothing when its offsets make no sense.
    [[nodiscard]] std::optional<Bytes> bytes(int row) const {
        const std::size_t begin = offset(row);
        const std::size_t end = row == 0 ? layout_->pageSize : offset(row - 1);
        const std::size_t lowest = layout_->rowOffsetsAt + 2 * static_cast<std::size_t>(rows_);
        if (begin < lowest || begin > end || end > layout_->pageSize) return {};
        return Bytes(page_ + begin, end - begin);
    }

private:
    [[nodiscard]] std::uint16_t word(int row) const {
        return u16At(page_ + layout_->rowOffsetsAt + 2 * static_cast<std::size_t>(row));
    }
    [[nodiscard]] std::size_t offset(int row) const { return word(row) & 0x1FFF; }

    const std::uint8_t* page_ = nullptr;
    const Layout* layout_ = nullptr;
    int rows_ = 0;
};

/// The RowPointer that a moved row, a map pointer or a long value begins with.
[[nodiscard]] inline RowPointer rowPointerAt(const std::uint8_t* p) { return {u24At(p + 1), p[0]}; }

}  // namespace velt::jet
