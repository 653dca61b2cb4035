// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/access/jet/pagereader.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace velt::jet {

/// A user table as the catalogue lists it.
struct CatalogEntry {
    std::string name;
    std::uint32_t definitionPage = 0;
    bool linked = false;  ///< its rows lie in another file
};

/// The user tables, in catalogue order. Raises Damaged or RuntimeError.
[[nodiscard]] std::vector<CatalogEntry> readCatalog(const std::shared_ptr<const PageReader>& file);

/// The entry of that name, letter case ignored; null when there is none.
[[nodiscard]] const CatalogEntry* findEntry(const std::vector<CatalogEntry>& entries,
                                            std::string_view name);

}  // namespace velt::jet
