// SPDX-License-Identifier: MIT
#include "adapters/qt/rowtext.h"

#include "platform/conversions.h"

namespace velt::qt {
namespace {

void appendCell(std::string& out, const std::string& text) {
    const bool needsQuotes =
        text.find_first_of("\t\r\n") != std::string::npos || text.starts_with('"');
    if (!needsQuotes) {
        out += text;
        return;
    }
    out += '"';
    for (const char c : text) {
        if (c == '"') out += '"';
        out += c;
    }
    out += '"';
}

}  // namespace

std::string cellText(const Variant& value, const Locale& locale) {
    return value.isArray() ? std::string() : conversions::text(value, locale);
}

std::string tabSeparated(const RowSet& rows, const std::vector<RowRange>& ranges,
                         const Locale& locale, const std::stop_token& stop) {
    std::string out;
    bool first = true;
    for (const RowRange& range : ranges) {
        for (std::size_t row = range.first; row <= range.last && !stop.stop_requested(); ++row) {
            if (!std::exchange(first, false)) out += '\n';
            for (std::size_t column = 0; column < rows.columnCount(); ++column) {
                if (column > 0) out += '\t';
                appendCell(out, cellText(rows.value(row, column), locale));
            }
        }
    }
    return out;
}

}  // namespace velt::qt
