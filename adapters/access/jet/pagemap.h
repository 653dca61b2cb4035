// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/access/jet/layout.h"
#include "adapters/access/jet/pagefile.h"

#include <cstdint>
#include <functional>
#include <vector>

namespace velt::jet {

/// A map of pages in a file that is written to. Changing a bit writes one byte, so that a reader
/// sees the map as it was or as it is and nothing between.
class PageMap {
public:
    /// Raises Damaged when there is no map at `place`. The file must outlive the map.
    PageMap(PageFile& file, RowPointer place);

    /// Sets or clears the bit of `page`; false when the map does not reach so far.
    [[nodiscard]] bool set(std::uint32_t page, bool value);

    /// Lets an inline map begin at `page`, all its bits `bits`: what it said before is forgotten.
    /// Does nothing to a map with map pages.
    void moveWindow(std::uint32_t page, bool bits);
    /// Adds `page`, which the map does not reach, with the map pages that this takes; nothing is
    /// forgotten. `newPage` gives the numbers of new pages.
    void extend(std::uint32_t page, const std::function<std::uint32_t()>& newPage);

private:
    [[nodiscard]] bool isInline() const { return row_[0] == 0; }
    [[nodiscard]] std::size_t pagesPerMapPage() const;
    [[nodiscard]] bool setInline(std::uint32_t page, bool value);
    [[nodiscard]] bool setInMapPage(std::uint32_t page, bool value);
    [[nodiscard]] std::vector<std::uint32_t> inlinePages() const;
    void writeRow();

    PageFile* file_;
    std::uint32_t page_;
    std::size_t offset_ = 0;         ///< of the row in its page
    std::vector<std::uint8_t> row_;  ///< the type, then bits or the numbers of map pages
    std::uint32_t mapPage_ = 0;      ///< the map page that was changed last
    std::vector<std::uint8_t> mapBytes_;
};

}  // namespace velt::jet
