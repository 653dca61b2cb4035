// SPDX-License-Identifier: MIT
#include "adapters/access/jet/tabledefinition.h"

#include "adapters/access/jet/bytes.h"
#include "adapters/access/jet/datapage.h"
#include "adapters/access/jet/textcodec.h"

#include <algorithm>
#include <string>

namespace velt::jet {
namespace {

// 255 columns with names of 64 characters and 32 indexes fit in far fewer.
constexpr std::size_t MostDefinitionPages = 64;

// Deleted columns keep their number until the file is compacted, and count among these.
constexpr std::uint16_t MostColumns = 255;

constexpr std::uint8_t FlagFixed = 0x01;
constexpr std::uint8_t ExtraCompressible = 0x01;
constexpr std::uint8_t ExtraCalculated = 0xC0;
constexpr std::uint16_t EndOfLongColumns = 0xFFFF;

/// The pages of a definition joined.
std::vector<std::uint8_t> joinPages(const PageReader& file, std::uint32_t number) {
    std::vector<std::uint8_t> whole;
    for (std::size_t count = 0; number != 0; ++count) {
        if (count == MostDefinitionPages) throw Damaged("la definizione non ha fine");
        if (number >= file.pageCount()) throw Damaged("la definizione esce dal file");
        const auto page = file.page(number);
        if (page[0] != static_cast<std::uint8_t>(PageType::Definition))
            throw Damaged("manca una pagina della definizione");
        whole.insert(whole.end(), page.begin() + (count == 0 ? 0 : 8), page.end());
        number = u32At(&page[4]);
    }
    return whole;
}

bool isKnown(std::uint8_t type) {
    return (type >= 1 && type <= 12) || type == 15 || type == 16 || (type >= 18 && type <= 20);
}

Column parseColumn(const CheckedBytes& block, const Layout& layout) {
    Column column;
    const std::uint8_t type = block.u8(0);
    if (!isKnown(type))
        throw Damaged("una colonna è di tipo sconosciuto (" + std::to_string(type) + ")");
    column.type = static_cast<ColumnType>(type);
    column.number = block.u16(layout.numberAt);
    if (column.number >= MostColumns) throw Damaged("una colonna ha un numero impossibile");
    column.variableIndex = block.u16(layout.variableIndexAt);
    column.fixedOffset = block.u16(layout.fixedOffsetAt);
    column.length = block.u16(layout.lengthAt);
    column.fixed = (block.u8(layout.flagsAt) & FlagFixed) != 0;
    if (!layout.jet3) {
        const std::uint8_t extra = block.u8(layout.flagsAt + 1);
        column.compressible = (extra & ExtraCompressible) != 0;
        column.calculated = (extra & ExtraCalculated) == ExtraCalculated;
    }
    if (column.type == ColumnType::Numeric) {
        column.precision = block.u8(layout.precisionAt);
        column.scale = block.u8(layout.precisionAt + 1);
    }
    return column;
}

/// Reads the names that follow the column blocks, in the same order; returns where they end.
std::size_t parseNames(const CheckedBytes& bytes, std::size_t at, const Layout& layout,
                       std::vector<Column>& columns) {
    for (Column& column : columns) {
        const std::size_t length = layout.jet3 ? bytes.u8(at) : bytes.u16(at);
        at += layout.jet3 ? 1 : 2;
        column.name = decodeText(bytes.part(at, length),
                                 layout.jet3 ? TextEncoding::Windows1252 : TextEncoding::Utf16);
        at += length;
    }
    return at;
}

RowPointer pointer(const CheckedBytes& bytes, std::size_t at) {
    return rowPointerAt(bytes.part(at, 4).data());
}

/// The definition; `at` becomes the place behind the columns' names.
TableDefinition parse(const CheckedBytes& bytes, const Layout& layout, std::size_t& at) {
    TableDefinition definition;
    at = layout.kindAt;
    definition.statedRows = bytes.u32(layout.statedRowsAt);
    definition.variableColumns = bytes.u16(at + 3);
    const std::uint16_t columnCount = bytes.u16(at + 5);
    definition.indexes = bytes.u32(at + 11);
    definition.ownedPages = pointer(bytes, at + 15);
    definition.freePages = pointer(bytes, at + 19);
    at += 23;
    if (definition.indexes > bytes.size()) throw Damaged("la definizione è più corta del dovuto");
    at += definition.indexes * layout.indexCountSize;
    for (std::uint16_t i = 0; i < columnCount; ++i, at += layout.columnSize)
        definition.columns.push_back(
            parseColumn(CheckedBytes(bytes.part(at, layout.columnSize)), layout));
    at = parseNames(bytes, at, layout, definition.columns);
    std::ranges::stable_sort(definition.columns, {}, &Column::number);
    return definition;
}

}  // namespace

TableDefinition readDefinition(const PageReader& file, std::uint32_t page) {
    const auto whole = joinPages(file, page);
    std::size_t end = 0;
    return parse(CheckedBytes(whole), file.layout(), end);
}

DefinitionTail readDefinitionTail(const PageReader& file, std::uint32_t page) {
    const Layout& layout = file.layout();
    const auto whole = joinPages(file, page);
    const CheckedBytes bytes(whole);
    std::size_t at = 0;
    const TableDefinition definition = parse(bytes, layout, at);

    DefinitionTail tail;
    for (std::uint32_t i = 0; i < definition.indexes; ++i, at += layout.indexSize)
        tail.indexPages.push_back(bytes.u32(at + layout.indexPageAt));
    // The list of indexes names some of them twice, once for each relation.
    const std::uint32_t slots = bytes.u32(layout.kindAt + 7);
    for (std::uint32_t i = 0; i < slots; ++i) at += bytes.part(at, layout.indexSlotSize).size();
    for (std::uint32_t i = 0; i < slots; ++i)
        at += layout.jet3 ? 1U + bytes.u8(at) : 2U + bytes.u16(at);
    for (; bytes.u16(at) != EndOfLongColumns; at += 10)
        tail.longColumns.push_back({bytes.u16(at), pointer(bytes, at + 2), pointer(bytes, at + 6)});
    return tail;
}

}  // namespace velt::jet
