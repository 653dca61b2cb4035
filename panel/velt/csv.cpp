// SPDX-License-Identifier: MIT
#include "panel/velt/csv.h"

#include "panel/velt/valuetext.h"

namespace velt::cli {
namespace {

std::string field(const Variant& value) {
    std::string text = valueText(value);
    if (text.empty() && value.holds<std::string>()) return "\"\"";
    if (text.find_first_of(",\"\r\n") == std::string::npos) return text;
    std::string quoted = "\"";
    for (const char c : text) {
        if (c == '"') quoted += c;
        quoted += c;
    }
    return quoted + '"';
}

}  // namespace

void writeCsvRecord(Output& output, const std::vector<Variant>& values) {
    bool first = true;
    for (const Variant& value : values) {
        if (!first) output.write(",");
        output.write(field(value));
        first = false;
    }
    output.write("\r\n");
}

void writeCsv(Output& output, const RowSet& rows) {
    std::vector<Variant> record(rows.columnCount());
    for (std::size_t column = 0; column < record.size(); ++column)
        record[column] = rows.columnName(column);
    writeCsvRecord(output, record);
    for (std::size_t row = 0; row < rows.rowCount(); ++row) {
        for (std::size_t column = 0; column < record.size(); ++column)
            record[column] = rows.value(row, column);
        writeCsvRecord(output, record);
    }
}

}  // namespace velt::cli
