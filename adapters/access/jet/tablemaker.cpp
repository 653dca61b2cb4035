// SPDX-License-Identifier: MIT
#include "adapters/access/jet/tablemaker.h"

#include "adapters/access/jet/bytewriter.h"
#include "adapters/access/jet/indexleaf.h"
#include "adapters/access/jet/pagemap.h"

#include <algorithm>
#include <utility>

namespace velt::jet {
namespace {

using Map = std::vector<std::uint8_t>;

/// Empty maps, as many as asked for, in pages of their own.
class MapRows {
public:
    explicit MapRows(PageAllocator& allocator) : allocator_(&allocator) {}

    /// The place of one more map.
    RowPointer take() {
        const Layout& layout = allocator_->file().layout();
        const std::size_t perPage =
            (layout.pageSize - layout.rowOffsetsAt) / (mapRowSize(layout) + 2);
        if (used_ % perPage == 0) page_ = allocator_->takePage();
        const auto row = static_cast<std::uint8_t>(used_ % perPage);
        if (row == 0) write(perPage);
        ++used_;
        return {page_, row};
    }

private:
    void write(std::size_t count) {
        const Layout& layout = allocator_->file().layout();
        const std::vector<Map> maps(count, Map(mapRowSize(layout)));
        allocator_->file().write(page_, 0, makeMapPage(layout, 0, maps));
    }

    PageAllocator* allocator_;
    std::uint32_t page_ = 0;
    std::size_t used_ = 0;
};

bool isLong(const Column& column) {
    return column.type == ColumnType::Memo || column.type == ColumnType::Ole;
}

}  // namespace

std::size_t mapRowSize(const Layout& layout) { return layout.jet3 ? 133 : 69; }

std::vector<std::uint8_t> makeMapPage(const Layout& layout, std::uint32_t owner,
                                      const std::vector<Map>& maps) {
    std::vector<std::uint8_t> page(layout.pageSize);
    page[0] = static_cast<std::uint8_t>(PageType::Data);
    page[1] = 1;
    putAt(&page[4], owner);
    putAt(&page[layout.rowCountAt], static_cast<std::uint16_t>(maps.size()));
    std::size_t end = layout.pageSize;
    for (std::size_t i = 0; i < maps.size(); ++i) {
        end -= maps[i].size();
        std::ranges::copy(maps[i], page.begin() + static_cast<std::ptrdiff_t>(end));
        putAt(&page[layout.rowOffsetsAt + 2 * i], static_cast<std::uint16_t>(end));
    }
    const std::size_t used = layout.rowOffsetsAt + 2 * maps.size();
    putAt(&page[2], static_cast<std::uint16_t>(end - used));
    return page;
}

void makeTable(PageAllocator& allocator, std::uint32_t page, bool system,
               std::vector<Column> columns, std::vector<NewIndex> indexes) {
    PageFile& file = allocator.file();
    MapRows maps(allocator);
    NewDefinition table;
    table.system = system;
    table.ownedPages = maps.take();
    table.freePages = maps.take();
    for (const Column& column : columns)
        if (isLong(column)) {
            const RowPointer owned = maps.take();
            table.longColumns.push_back({column.number, owned, maps.take()});
        }
    // The map of the rows' pages names map pages from the start: it then grows bit by bit, and
    // never changes its kind under a reader.
    PageMap owned(file, table.ownedPages);
    owned.extend(page, [&allocator] { return allocator.takePage(); });
    static_cast<void>(owned.set(page, false));

    for (NewIndex& index : indexes) {
        index.pages = maps.take();
        index.rootPage = allocator.takePage();
        file.write(index.rootPage, 0, IndexLeaf::emptyPage(file.layout(), page));
        static_cast<void>(PageMap(file, index.pages).set(index.rootPage, true));
    }
    table.columns = std::move(columns);
    table.indexes = std::move(indexes);
    writeDefinition(allocator, page, table);
}

}  // namespace velt::jet
