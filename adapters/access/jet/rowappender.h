// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/access/jet/bytes.h"
#include "adapters/access/jet/layout.h"
#include "adapters/access/jet/pageallocator.h"
#include "adapters/access/jet/pagemap.h"

#include <cstdint>
#include <vector>

namespace velt::jet {

/// Appends rows to the data pages of one owner. The last page is kept in memory; flush() and the
/// next page write it. A page is written before the map lists it, and a row before the page counts
/// it, so that a reader never sees half of one.
class RowAppender {
public:
    /// `owner` is what stands in the pages: a definition page, or LongValueOwner.
    RowAppender(PageAllocator& allocator, std::uint32_t owner, RowPointer ownedPages,
                RowPointer freePages);

    /// Goes on filling `page` if it is one of this owner's and whole.
    void resume(std::uint32_t page);

    /// Longest row that fits in a page.
    [[nodiscard]] static std::size_t longestRow(const Layout& layout);
    [[nodiscard]] bool fits(std::size_t size) const;
    /// Begins a new page first (which flushes the last) when the row does not fit.
    RowPointer append(Bytes row);
    void flush();

private:
    [[nodiscard]] const Layout& layout() const { return allocator_->file().layout(); }
    void beginPage();
    void writeRows();
    void writePage();
    void writeNewRows();
    void listAsFree(bool value);

    PageAllocator* allocator_;
    std::uint32_t owner_;
    PageMap owned_;
    PageMap free_;

    std::uint32_t number_ = 0;  ///< of the page in memory, 0 when there is none
    std::vector<std::uint8_t> page_;
    std::size_t rows_ = 0;
    std::size_t lowest_ = 0;  ///< where the last row begins
    bool inFile_ = false;
    bool listedAsFree_ = false;
    std::size_t rowsInFile_ = 0;
    std::size_t lowestInFile_ = 0;
};

/// Stands in pages of long values where others have their table's definition page: "LVAL".
inline constexpr std::uint32_t LongValueOwner = 0x4C41564C;

}  // namespace velt::jet
