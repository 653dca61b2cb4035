// SPDX-License-Identifier: MIT
#include "adapters/access/jet/definitionbuilder.h"

#include "adapters/access/jet/bytewriter.h"
#include "adapters/access/jet/textencoder.h"

#include <algorithm>

namespace velt::jet {
namespace {

// Stands in many places of a Jet 4 definition, its meaning is not known.
constexpr std::uint32_t Mark = 1625;
constexpr std::uint32_t IndexMark = 1923;
constexpr std::uint16_t SortOrder = 0x0409;
constexpr std::uint16_t CodePage = 1252;
constexpr std::uint16_t EndOfLongColumns = 0xFFFF;
constexpr std::size_t IndexColumns = 10;
constexpr std::size_t PageHead = 8;
constexpr std::size_t LengthAt = 8;

using Out = std::vector<std::uint8_t>;

void putPointer(Out& out, RowPointer pointer) { put(out, pointer.page << 8 | pointer.row); }

void putName(Out& out, std::string_view name, const Layout& layout) {
    Out text;
    appendText(name, layout.jet3 ? TextEncoding::Windows1252 : TextEncoding::Utf16, false, text);
    if (layout.jet3)
        out.push_back(static_cast<std::uint8_t>(text.size()));
    else
        put(out, static_cast<std::uint16_t>(text.size()));
    out.insert(out.end(), text.begin(), text.end());
}

bool isVariable(const Column& column) { return !column.fixed; }

void putHead(Out& out, const NewDefinition& table, const Layout& layout) {
    const auto columns = static_cast<std::uint16_t>(table.columns.size());
    const auto indexes = static_cast<std::uint32_t>(table.indexes.size());
    out.resize(layout.kindAt);
    if (!layout.jet3) {
        putAt(&out[12], Mark);
        putAt(&out[24], std::uint32_t{1});
    }
    out.push_back(table.system ? 'S' : 'N');
    put(out, columns);
    put(out, static_cast<std::uint16_t>(std::ranges::count_if(table.columns, isVariable)));
    put(out, columns);
    put(out, indexes);
    put(out, indexes);
    putPointer(out, table.ownedPages);
    putPointer(out, table.freePages);
    out.resize(out.size() + indexes * layout.indexCountSize);
}

void putColumn(Out& out, const Column& column, bool system, const Layout& layout) {
    const std::size_t at = out.size();
    out.resize(at + layout.columnSize);
    std::uint8_t* block = &out[at];
    block[0] = static_cast<std::uint8_t>(column.type);
    putAt(block + layout.numberAt, column.number);
    putAt(block + layout.variableIndexAt, column.variableIndex);
    putAt(block + layout.variableIndexAt + 2, column.number);
    if (column.type == ColumnType::Numeric) {
        block[layout.precisionAt] = column.precision;
        block[layout.precisionAt + 1] = column.scale;
    } else {
        putAt(block + layout.variableIndexAt + 4, SortOrder);
        if (layout.jet3) putAt(block + layout.variableIndexAt + 6, CodePage);
    }
    if (!layout.jet3) {
        putAt(block + 1, Mark);
        block[layout.flagsAt + 1] = column.compressible && !system ? 1 : 0;
    }
    constexpr unsigned Nullable = 2;
    constexpr unsigned System = 0x10;
    block[layout.flagsAt] =
        static_cast<std::uint8_t>((column.fixed ? 1U : 0U) | Nullable | (system ? System : 0U));
    putAt(block + layout.fixedOffsetAt, column.fixedOffset);
    putAt(block + layout.lengthAt, column.length);
}

void putIndex(Out& out, const NewIndex& index) {
    put(out, IndexMark);
    for (std::size_t i = 0; i < IndexColumns; ++i) {
        const bool used = i < index.columns.size();
        put(out, used ? index.columns[i] : std::uint16_t{0xFFFF});
        out.push_back(used ? 1 : 0);  // ascending
    }
    putPointer(out, index.pages);
    put(out, index.rootPage);
    put(out, std::uint32_t{0});
    put(out, std::uint16_t{index.flags});
    put(out, std::uint32_t{0});
}

void putIndexSlot(Out& out, std::uint32_t number) {
    put(out, Mark);
    put(out, number);
    put(out, number);
    out.push_back(0);
    put(out, std::uint32_t{0xFFFFFFFF});  // no relation
    put(out, std::uint32_t{0});
    out.insert(out.end(), {4, 4, 0});
    put(out, std::uint32_t{0});
}

/// The definition as if a page had no end.
Out build(const NewDefinition& table, const Layout& layout) {
    Out out;
    putHead(out, table, layout);
    for (const Column& column : table.columns) putColumn(out, column, table.system, layout);
    for (const Column& column : table.columns) putName(out, column.name, layout);
    for (const NewIndex& index : table.indexes) putIndex(out, index);
    for (std::uint32_t i = 0; i < table.indexes.size(); ++i) putIndexSlot(out, i);
    for (const NewIndex& index : table.indexes) putName(out, index.name, layout);
    for (const LongColumn& column : table.longColumns) {
        put(out, column.number);
        putPointer(out, column.ownedPages);
        putPointer(out, column.freePages);
    }
    put(out, EndOfLongColumns);
    putAt(&out[LengthAt], static_cast<std::uint32_t>(out.size()));
    return out;
}

}  // namespace

void writeDefinition(PageAllocator& allocator, std::uint32_t page, const NewDefinition& table) {
    const Layout& layout = allocator.file().layout();
    const Out whole = build(table, layout);

    // The first page holds its own head, each further one a head and what comes next.
    std::vector<Out> pages{Out(whole.begin(), whole.begin() + PageHead)};
    std::vector<std::uint32_t> numbers{page};
    for (std::size_t at = PageHead; at < whole.size();) {
        const std::size_t part = std::min(layout.pageSize - PageHead, whole.size() - at);
        if (at > PageHead) {
            pages.emplace_back(PageHead);
            numbers.push_back(allocator.takePage());
        }
        const auto begin = whole.begin() + static_cast<std::ptrdiff_t>(at);
        pages.back().insert(pages.back().end(), begin, begin + static_cast<std::ptrdiff_t>(part));
        at += part;
    }
    // Written backwards: the definition is there from the moment its first page is.
    for (std::size_t i = pages.size(); i-- > 0;) {
        Out& bytes = pages[i];
        const std::size_t used = std::min(bytes.size() + PageHead, layout.pageSize);
        bytes.resize(layout.pageSize);
        bytes[0] = static_cast<std::uint8_t>(PageType::Definition);
        bytes[1] = 1;
        if (layout.jet3) {
            bytes[2] = 'V';
            bytes[3] = 'C';
        } else {
            putAt(&bytes[2], static_cast<std::uint16_t>(layout.pageSize - used));
        }
        putAt(&bytes[4], i + 1 < pages.size() ? numbers[i + 1] : std::uint32_t{0});
        allocator.file().write(numbers[i], 0, bytes);
    }
}

}  // namespace velt::jet
