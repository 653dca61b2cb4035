// SPDX-License-Identifier: MIT
#include "adapters/access/jet/newcolumns.h"

#include "adapters/access/jet/rowappender.h"
#include "adapters/access/jet/rowformat.h"
#include "adapters/access/jet/textcodec.h"
#include "platform/runtimeerror.h"

#include <algorithm>
#include <string>

namespace velt::jet {
namespace {

constexpr std::size_t MostColumns = 255;
constexpr std::size_t LongestName = 64;

[[noreturn]] void fail(std::string_view name, const std::string& reason) {
    throw RuntimeError(ErrorNumber::InvalidCall,
                       "\"" + std::string(name) + "\" non può essere creato: " + reason + ".");
}

bool isVariable(ColumnType type) { return sizeOf(type) == 0 && type != ColumnType::Boolean; }

std::uint16_t lengthOf(const ColumnDefinition& definition, const Layout& layout) {
    const int perCharacter = layout.jet3 ? 1 : 2;
    switch (definition.type) {
        case ColumnType::Text:
            if (definition.textLength < 1 || definition.textLength > 255)
                fail(definition.name, "la lunghezza non è ammessa");
            return static_cast<std::uint16_t>(definition.textLength * perCharacter);
        case ColumnType::Binary: return static_cast<std::uint16_t>(255 * perCharacter);
        case ColumnType::Boolean: return 1;
        default: return sizeOf(definition.type);
    }
}

void checkType(const ColumnDefinition& definition) {
    const ColumnType type = definition.type;
    // Kinds that only later versions have.
    if (type == ColumnType::ComplexId || type == ColumnType::BigInt ||
        type == ColumnType::ExtendedDate)
        fail(definition.name, "il formato del file non prevede questo tipo di colonna");
    if (type != ColumnType::Numeric) return;
    const bool fits = definition.precision >= 1 && definition.precision <= 28 &&
                      definition.scale >= 0 && definition.scale <= definition.precision;
    if (!fits) fail(definition.name, "il numero di cifre non è ammesso");
}

}  // namespace

void checkName(std::string_view name) {
    if (name.empty()) fail(name, "manca il nome");
    if (name.size() > LongestName) fail(name, "il nome è troppo lungo");
}

std::vector<Column> layOutColumns(std::span<const ColumnDefinition> definitions,
                                  const Layout& layout) {
    if (definitions.empty() || definitions.size() > MostColumns)
        throw RuntimeError(ErrorNumber::InvalidCall, "Una tabella ha da 1 a 255 colonne.");
    std::vector<Column> columns;
    std::uint16_t variables = 0;
    std::size_t fixedBytes = 0;
    for (const ColumnDefinition& definition : definitions) {
        checkName(definition.name);
        checkType(definition);
        const bool repeated = std::ranges::any_of(columns, [&definition](const Column& other) {
            return sameName(other.name, definition.name);
        });
        if (repeated) fail(definition.name, "il nome è ripetuto");

        Column column;
        column.name = definition.name;
        column.type = definition.type;
        column.number = static_cast<std::uint16_t>(columns.size());
        column.variableIndex = variables;
        column.length = lengthOf(definition, layout);
        column.fixed = !isVariable(definition.type);
        column.compressible =
            definition.type == ColumnType::Text || definition.type == ColumnType::Memo;
        if (definition.type == ColumnType::Numeric) {
            column.precision = static_cast<std::uint8_t>(definition.precision);
            column.scale = static_cast<std::uint8_t>(definition.scale);
        }
        if (column.fixed) {
            column.fixedOffset = static_cast<std::uint16_t>(fixedBytes);
            fixedBytes += sizeOf(definition.type);
        } else {
            ++variables;
        }
        columns.push_back(std::move(column));
    }
    // 255 columns of 17 bytes can be too much for a page.
    if (fixedBytes + 64 > RowAppender::longestRow(layout))
        throw RuntimeError(ErrorNumber::InvalidCall, "Le colonne non stanno in una riga.");
    return columns;
}

}  // namespace velt::jet
