// SPDX-License-Identifier: MIT
#include "panel/velt/texttable.h"

#include "panel/velt/valuetext.h"

#include <algorithm>
#include <vector>

namespace velt::cli {
namespace {

constexpr std::string_view hexDigits = "0123456789ABCDEF";

std::string escape(std::uint8_t byte) {
    switch (byte) {
        case '\n': return "\\n";
        case '\r': return "\\r";
        case '\t': return "\\t";
        default: return {'\\', 'x', hexDigits[byte >> 4u], hexDigits[byte & 0xFu]};
    }
}

struct Cell {
    std::string text;
    bool toTheRight = false;
};

void writeLine(Output& output, const std::vector<Cell>& cells,
               const std::vector<std::size_t>& widths) {
    std::string line;
    for (std::size_t column = 0; column < cells.size(); ++column) {
        const std::string padding(widths[column] - widthOf(cells[column].text), ' ');
        if (column > 0) line += "  ";
        line +=
            cells[column].toTheRight ? padding + cells[column].text : cells[column].text + padding;
    }
    line.erase(line.find_last_not_of(' ') + 1);
    output.write(line + '\n');
}

Cell cellOf(const Variant& value) { return {printable(valueText(value)), isNumber(value)}; }

}  // namespace

std::string printable(std::string_view text) {
    std::string result;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const auto byte = static_cast<std::uint8_t>(text[at]);
        const auto next = at + 1 < text.size() ? static_cast<std::uint8_t>(text[at + 1]) : 0;
        if (byte < 0x20 || byte == 0x7F) {
            result += escape(byte);
        } else if (byte == 0xC2 && next >= 0x80 && next < 0xA0) {
            result += escape(static_cast<std::uint8_t>(next));  // U+0080..U+009F
            ++at;
        } else {
            result += text[at];
        }
    }
    return result;
}

std::size_t widthOf(std::string_view text) {
    const auto startsCharacter = [](char c) {
        return (static_cast<std::uint8_t>(c) & 0xC0u) != 0x80u;
    };
    return static_cast<std::size_t>(std::ranges::count_if(text, startsCharacter));
}

std::string rowsText(std::uint64_t count) {
    return std::to_string(count) + (count == 1 ? " row" : " rows");
}

void writeTextTable(Output& output, const RowSet& rows) {
    std::vector<Cell> cells(rows.columnCount());
    std::vector<std::size_t> widths(cells.size());
    std::vector<Cell> rulers(cells.size());
    for (std::size_t column = 0; column < cells.size(); ++column) {
        cells[column].text = printable(rows.columnName(column));
        widths[column] = widthOf(cells[column].text);
        for (std::size_t row = 0; row < rows.rowCount(); ++row)
            widths[column] =
                std::max(widths[column], widthOf(cellOf(rows.value(row, column)).text));
        rulers[column].text = std::string(widths[column], '-');
    }
    writeLine(output, cells, widths);
    writeLine(output, rulers, widths);
    for (std::size_t row = 0; row < rows.rowCount(); ++row) {
        for (std::size_t column = 0; column < cells.size(); ++column)
            cells[column] = cellOf(rows.value(row, column));
        writeLine(output, cells, widths);
    }
    output.write("(" + rowsText(rows.rowCount()) + ")\n");
}

}  // namespace velt::cli
