// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/access/jet/pageallocator.h"
#include "adapters/access/jet/tablewriter.h"

#include <bit>
#include <cstdint>
#include <string_view>

namespace velt::jet {

/// The date that files made here bear in their header. The ids of users in a file are masked by
/// it, so both are constants here; it also tells which files were made here.
inline constexpr double CreationDate = std::bit_cast<double>(0x40E4AB3E3BD3853EULL);

/// Writes the system tables of a new file, their definitions on pages 2 to 5, and their entries.
void makeSystemTables(PageAllocator& allocator);

/// Enters new tables into `MSysObjects` and `MSysACEs`.
class CatalogWriter {
public:
    struct Object;
    struct Permission;

    /// Raises Damaged.
    explicit CatalogWriter(PageAllocator& allocator);

    /// True when the catalogue has indexes. Only those made here can be kept up.
    [[nodiscard]] bool hasIndexes() const { return objects_.definition().indexes > 0; }
    /// RuntimeError when the catalogue is full or its index cannot take the name.
    void checkTable(std::string_view name) const;
    /// Enters a user table that is there from now on.
    void addTable(std::string_view name, std::uint32_t definitionPage);
    void add(const Object& object);
    void add(const Permission& permission);

private:
    PageFile* file_;
    TableWriter objects_;
    TableWriter permissions_;
};

}  // namespace velt::jet
