// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/access/jet/pagereader.h"

#include <cstdint>
#include <memory>
#include <span>
#include <vector>

namespace velt::jet {

/// The pages of a scan, read in pieces of 256 KiB. The file must outlive it.
class PageWindow {
public:
    explicit PageWindow(const PageReader& file);

    /// Page `pages[index]`, with as many of those behind it as one piece holds when it must be
    /// read. The bytes are valid until the next call.
    [[nodiscard]] const std::uint8_t* ahead(std::span<const std::uint32_t> pages,
                                            std::size_t index);
    /// One page alone, for reading here and there.
    [[nodiscard]] const std::uint8_t* single(std::uint32_t page);
    /// Forgets what was read, so that it is read afresh.
    void clear() { count_ = 0; }

private:
    [[nodiscard]] bool holds(std::uint32_t page) const {
        return page >= first_ && page - first_ < count_;
    }
    const std::uint8_t* load(std::uint32_t first, std::uint32_t count);
    [[nodiscard]] const std::uint8_t* at(std::uint32_t page) const;

    const PageReader* file_;
    std::vector<std::uint8_t> bytes_;
    std::uint32_t first_ = 0;
    std::uint32_t count_ = 0;
};

}  // namespace velt::jet
