// SPDX-License-Identifier: MIT
#include "adapters/access/jet/cursor.h"
#include "adapters/access/jet/database.h"
#include "adapters/access/querycontrol.h"
#include "adapters/access/queryerror.h"
#include "panel/velt/command.h"
#include "panel/velt/csv.h"
#include "panel/velt/seconds.h"
#include "panel/velt/texttable.h"
#include "platform/paths.h"
#include "platform/runtimeerror.h"

#include <algorithm>
#include <array>
#include <iostream>

namespace velt::cli {

extern const Command tablesCommand;

namespace {

constexpr std::array options = {Option{"--csv"}, Option{"--timeout", true}};

constexpr std::string_view help =
    R"(Usage: velt tables [--csv] [--timeout SECONDS] FILE

Lists the tables of an Access file: their rows, counted by reading them, and
their columns with the types. Linked tables and the system's own are left out.

Options:
  --csv              one line per table: its name, rows and number of columns, as
                     CSV under the header table,rows,columns
  --timeout SECONDS  ends the counting after this time; default 60
  --help             show this text

Example:
  velt tables --csv Allarmi.mdb
)";

std::string typeText(const jet::Column& column, jet::Version version) {
    using Type = jet::ColumnType;
    const auto sized = [&column](const char* name, int unit) {
        return std::string(name) + "(" + std::to_string(column.length / unit) + ")";
    };
    switch (column.type) {
        case Type::Boolean: return "Yes/No";
        case Type::Byte: return "Byte";
        case Type::Integer: return "Integer";
        case Type::Long: return "Long";
        case Type::Currency: return "Currency";
        case Type::Single: return "Single";
        case Type::Double: return "Double";
        case Type::Date: return "Date/Time";
        case Type::Binary: return sized("Binary", 1);
        // Jet 3 stores a byte per character, the later formats two.
        case Type::Text: return sized("Text", version == jet::Version::Jet3 ? 1 : 2);
        case Type::Ole: return "OLE Object";
        case Type::Memo: return "Memo";
        case Type::Guid: return "GUID";
        case Type::Numeric:
            return "Decimal(" + std::to_string(column.precision) + "," +
                   std::to_string(column.scale) + ")";
        case Type::ComplexId: return "Complex";
        case Type::BigInt: return "Large Number";
        case Type::ExtendedDate: return "Date/Time Extended";
    }
    return "Type " + std::to_string(static_cast<int>(column.type));
}

std::uint64_t countRows(const jet::Table& table, const access::QueryControl& control) {
    constexpr std::uint64_t rowsBetweenChecks = 4096;
    jet::Cursor cursor(table);
    std::uint64_t rows = 0;
    for (; cursor.next(); ++rows)
        if (rows % rowsBetweenChecks == 0) control.check();
    if (cursor.unreadableRows() > 0)
        std::cerr << "velt: warning: " << printable(table.name()) << ": "
                  << rowsText(cursor.unreadableRows()) << " could not be read\n";
    return rows;
}

void writeText(Output& output, const jet::Table& table, jet::Version version, std::uint64_t rows) {
    output.write(printable(table.name()) + ": " + rowsText(rows) + '\n');
    std::size_t widest = 0;
    for (const jet::Column& column : table.columns())
        widest = std::max(widest, widthOf(printable(column.name)));
    for (const jet::Column& column : table.columns()) {
        const std::string name = printable(column.name);
        output.write("    " + name + std::string(widest - widthOf(name) + 2, ' ') +
                     typeText(column, version) + '\n');
    }
}

void run(const CommandLine& line) {
    if (line.operands().size() != 1) throw UsageError("one FILE is needed");
    access::QueryLimits limits;
    if (line.has("--timeout")) limits.runTime = seconds("--timeout", line.value("--timeout"));
    const access::QueryControl control({}, limits);
    const std::string& path = line.operands().front();
    const auto database = jet::Database::open(resolvePath(path).value_or(path));

    Output output;
    const bool csv = line.has("--csv");
    if (csv) writeCsvRecord(output, {"table", "rows", "columns"});
    bool damaged = false;
    for (const std::string& name : database->tableNames()) {
        try {
            const jet::Table table = database->table(name);
            const std::uint64_t rows = countRows(table, control);
            if (csv)
                writeCsvRecord(output, {table.name(), std::to_string(rows),
                                        static_cast<std::int32_t>(table.columns().size())});
            else
                writeText(output, table, database->version(), rows);
        } catch (const RuntimeError& error) {
            if (error.Number() == access::queryerror::TimeExpired) {
                output.finish();  // what is known by now
                throw;
            }
            // The other tables may be sound, and are what somebody with a damaged file looks for.
            std::cerr << "velt: " << error.Description() << '\n';
            damaged = true;
        }
    }
    output.finish();
    if (damaged) throw RuntimeError(ErrorNumber::UnknownFileFormat, "not all tables could be read");
}

}  // namespace

constexpr Command tablesCommand{"tables", "list the tables of an Access file", help, options, run};

}  // namespace velt::cli
