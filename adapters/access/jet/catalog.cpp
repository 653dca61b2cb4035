// SPDX-License-Identifier: MIT
#include "adapters/access/jet/catalog.h"

#include "adapters/access/jet/bytes.h"
#include "adapters/access/jet/cursor.h"
#include "adapters/access/jet/tablecontent.h"

#include <algorithm>

namespace velt::jet {
namespace {

constexpr std::int64_t TypeTable = 1;
constexpr std::int64_t TypeLinkedServer = 4;
constexpr std::int64_t TypeLinked = 6;
constexpr std::int64_t SystemFlags = 0x80000002;
// The upper bits of an Id mean other things.
constexpr std::int64_t IdPageMask = 0xFFFFFF;

int columnOf(const Table& catalog, std::string_view name, ColumnType type) {
    const int index = catalog.columnIndex(name);
    if (index < 0 || catalog.columns()[static_cast<std::size_t>(index)].type != type)
        throw Damaged("il catalogo non ha la forma dovuta");
    return index;
}

}  // namespace

std::vector<CatalogEntry> readCatalog(const std::shared_ptr<const PageReader>& file) {
    const Table catalog = loadTable(file, "MSysObjects", CatalogPage);
    const int id = columnOf(catalog, "Id", ColumnType::Long);
    const int name = columnOf(catalog, "Name", ColumnType::Text);
    const int type = columnOf(catalog, "Type", ColumnType::Integer);
    const int flags = columnOf(catalog, "Flags", ColumnType::Long);

    std::vector<CatalogEntry> entries;
    for (Cursor rows(catalog); rows.next();) {
        const std::int64_t kind = rows.integer(type);
        const bool linked = kind == TypeLinked || kind == TypeLinkedServer;
        const bool system = (rows.integer(flags) & SystemFlags) != 0;
        if ((kind != TypeTable && !linked) || system) continue;
        entries.push_back({std::string(rows.text(name)),
                           static_cast<std::uint32_t>(rows.integer(id) & IdPageMask), linked});
    }
    return entries;
}

const CatalogEntry* findEntry(const std::vector<CatalogEntry>& entries, std::string_view name) {
    const auto found = std::ranges::find_if(
        entries, [name](const CatalogEntry& entry) { return sameName(entry.name, name); });
    return found == entries.end() ? nullptr : &*found;
}

}  // namespace velt::jet
