// SPDX-License-Identifier: MIT
#include "adapters/access/queryengine.h"
#include "panel/velt/command.h"
#include "panel/velt/csv.h"
#include "panel/velt/seconds.h"
#include "panel/velt/texttable.h"
#include "platform/paths.h"

#include <array>
#include <iostream>

namespace velt::cli {

extern const Command sqlCommand;

namespace {

constexpr std::array options = {Option{"--csv"}, Option{"--table"}, Option{"--timeout", true}};

constexpr std::string_view help =
    R"(Usage: velt sql [--csv | --table] [--timeout SECONDS] FILE STATEMENT

Runs one SELECT statement on an Access file and writes its rows. The file is
opened for reading only, and no other statement is allowed. Ctrl+C ends a query.

Options:
  --csv              CSV (RFC 4180, UTF-8) under a line of the column names; the
                     default when the output is not a terminal
  --table            an aligned table; the default on a terminal
  --timeout SECONDS  ends the query after this time; default 60
  --help             show this text

Examples:
  velt sql Allarmi.mdb "SELECT VRX, COUNT(*) AS N FROM Allarmi GROUP BY VRX"
  velt sql --csv RTU01.MDB "SELECT * FROM [Cloro Residuo]" > cloro.csv
)";

void run(const CommandLine& line) {
    if (line.operands().size() != 2) throw UsageError("a FILE and a STATEMENT are needed");
    if (line.has("--csv") && line.has("--table"))
        throw UsageError("--csv and --table exclude each other");
    access::QueryLimits limits;
    if (line.has("--timeout")) limits.runTime = seconds("--timeout", line.value("--timeout"));

    const std::string& path = line.operands()[0];
    const access::QueryEngine engine(resolvePath(path).value_or(path), limits);
    const access::QueryResult result = engine.run(line.operands()[1]);

    Output output;
    if (line.has("--table") || (!line.has("--csv") && Output::isTerminal()))
        writeTextTable(output, *result.rows);
    else
        writeCsv(output, *result.rows);
    output.finish();
    if (result.unreadableRows > 0)
        std::cerr << "velt: warning: " << rowsText(result.unreadableRows)
                  << " could not be read and are missing\n";
}

}  // namespace

constexpr Command sqlCommand{"sql", "run a SELECT statement on an Access file", help, options, run};

}  // namespace velt::cli
