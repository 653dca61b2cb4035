// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/access/jet/pagefile.h"
#include "adapters/access/jet/pagemap.h"

#include <cstdint>

namespace velt::jet {

/// Gives out new pages at the file's end and keeps the file's map of free pages true. Pages that
/// were given back earlier are not used again.
class PageAllocator {
public:
    explicit PageAllocator(PageFile& file) : file_(&file), free_(file, FreePagesMap) {}

    [[nodiscard]] PageFile& file() { return *file_; }
    [[nodiscard]] std::uint32_t takePage() {
        const std::uint32_t page = file_->takePage();
        // Pages before the map's window are in use, those behind it are free.
        if (!free_.set(page, false)) {
            free_.moveWindow(page, true);
            static_cast<void>(free_.set(page, false));
        }
        return page;
    }

private:
    static constexpr RowPointer FreePagesMap{1, 0};

    PageFile* file_;
    PageMap free_;
};

}  // namespace velt::jet
