// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/access/jet/format.h"

#include <cstddef>
#include <cstdint>

namespace velt::jet {

/// First bytes of pages.
enum class PageType : std::uint8_t { Header = 0, Data = 1, Definition = 2, IndexLeaf = 4, Map = 5 };

/// Page of the definition of `MSysObjects`, the catalogue.
inline constexpr std::uint32_t CatalogPage = 2;

/// Where things stand; the two generations of the format differ in little else.
struct Layout {
    bool jet3;
    std::size_t pageSize;

    // Data page
    std::size_t rowCountAt;
    std::size_t rowOffsetsAt;

    // Table definition
    std::size_t statedRowsAt;
    std::size_t kindAt;          ///< 'N' or 'S', then the counts of columns and indexes
    std::size_t indexCountSize;  ///< bytes per index before the columns
    std::size_t columnSize;
    std::size_t indexSize;  ///< bytes per index behind the columns' names
    std::size_t indexPageAt;
    std::size_t indexSlotSize;

    // Column block
    std::size_t numberAt;
    std::size_t variableIndexAt;
    std::size_t precisionAt;
    std::size_t flagsAt;
    std::size_t fixedOffsetAt;
    std::size_t lengthAt;
};

inline constexpr Layout Jet3Layout{true, 2048, 8, 10, 12, 20, 8,  18, 39,
                                   34,   20,   1, 3,  11, 13, 14, 16};
inline constexpr Layout Jet4Layout{false, 4096, 12, 14, 16, 40, 12, 25, 52,
                                   38,    28,   5,  7,  11, 15, 21, 23};

[[nodiscard]] constexpr const Layout& layoutOf(Version version) {
    return version == Version::Jet3 ? Jet3Layout : Jet4Layout;
}

/// A row's place as the file writes it: u8 row, u24 page.
struct RowPointer {
    std::uint32_t page = 0;
    std::uint8_t row = 0;
};

}  // namespace velt::jet
