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

constexpr std::uint8_t FlagFixed = 0x01;
constexpr std::uint8_t ExtraCalculated = 0xC0;

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
    column.variableIndex = block.u16(layout.variableIndexAt);
    column.fixedOffset = block.u16(layout.fixedOffsetAt);
    column.length = block.u16(layout.lengthAt);
    column.fixed = (block.u8(layout.flagsAt) & FlagFixed) != 0;
    column.calculated =
        !layout.jet3 && (block.u8(layout.flagsAt + 1) & ExtraCalculated) == ExtraCalculated;
    if (column.type == ColumnType::Numeric) {
        column.precision = block.u8(layout.precisionAt);
        column.scale = block.u8(layout.precisionAt + 1);
    }
    return column;
}

/// Reads the names that follow the column blocks, in the same order.
void parseNames(const CheckedBytes& bytes, std::size_t at, const Layout& layout,
                std::vector<Column>& columns) {
    for (Column& column : columns) {
        const std::size_t length = layout.jet3 ? bytes.u8(at) : bytes.u16(at);
        at += layout.jet3 ? 1 : 2;
        column.name = decodeText(bytes.part(at, length),
                                 layout.jet3 ? TextEncoding::Windows1252 : TextEncoding::Utf16);
        at += length;
    }
}

RowPointer pointer(const CheckedBytes& bytes, std::size_t at) {
    return rowPointerAt(bytes.part(at, 4).data());
}

}  // namespace

TableDefinition readDefinition(const PageReader& file, std::uint32_t page) {
    const Layout& layout = file.layout();
    const auto whole = joinPages(file, page);
    const CheckedBytes bytes(whole);

    TableDefinition definition;
    std::size_t at = layout.kindAt;
    definition.statedRows = bytes.u32(layout.statedRowsAt);
    definition.variableColumns = bytes.u16(at + 3);
    const std::uint16_t columnCount = bytes.u16(at + 5);
    definition.realIndexes = bytes.u32(at + 11);
    definition.ownedPages = pointer(bytes, at + 15);
    definition.freePages = pointer(bytes, at + 19);
    at += 23;
    if (definition.realIndexes > bytes.size())
        throw Damaged("la definizione è più corta del dovuto");
    at += definition.realIndexes * layout.indexCountSize;
    for (std::uint16_t i = 0; i < columnCount; ++i, at += layout.columnSize)
        definition.columns.push_back(
            parseColumn(CheckedBytes(bytes.part(at, layout.columnSize)), layout));
    parseNames(bytes, at, layout, definition.columns);
    std::ranges::stable_sort(definition.columns, {}, &Column::number);
    return definition;
}

}  // namespace velt::jet
