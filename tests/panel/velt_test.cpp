// SPDX-License-Identifier: MIT
#include "adapters/access/jet/writer.h"
#include "tests/filebytes.h"
#include "tests/panel/veltprogram.h"
#include "tests/tempfolder.h"

#include <fcntl.h>
#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sstream>
#include <string>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace velt::cli {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::StartsWith;
using Columns = std::vector<jet::ColumnDefinition>;
using Row = std::vector<Variant>;

const std::string neverEnding =
    "SELECT COUNT(*) FROM Valori a, Valori b, Valori c, Valori d, Valori e, Valori f, Valori g, "
    "Valori h, Valori i, Valori j, Valori k, Valori l, Valori m";
/// Stands in one row only, so that the row can be found in the file's bytes.
constexpr std::int32_t landmark = 0x5A3C1E7B;

class VeltTest : public testing::Test {
protected:
    VeltTest() {
        using enum jet::ColumnType;
        jet::Writer writer = jet::Writer::create(file_);
        writer.createTable("Valori", Columns{{"Numero", Double},
                                             {"Singolo", Single},
                                             {"Data", jet::ColumnType::Date},
                                             {"Sì", Boolean},
                                             {"Testo", Text, 40}});
        const velt::Date date = velt::Date::fromFields({2006, 3, 14, 7, 30});
        const velt::Date precise = velt::Date::fromFields({1899, 12, 29, 6, 0, 0, 1});
        const std::vector<Row> rows = {{0.1, 0.1F, date, true, "semplice"},
                                       {1.0 / 3, 16777216.0F, precise, false, "a \"b\", c"},
                                       {1e300, -0.5F, date, false, "due\r\nrighe"},
                                       {1000000.0, 1e-10F, velt::Date(1e7), true, ""},
                                       {-9007199254740993.0, 0.0F, date, true, "\x1B[2J\tPerché €"},
                                       {Null{}, Null{}, Null{}, false, Null{}}};
        for (const Row& row : rows) writer.append("Valori", row);
        writer.createTable("Altra tabella", Columns{{"K", Long}});
        writer.append("Altra tabella", Row{1});
        writer.append("Altra tabella", Row{landmark});
        writer.flush();
    }

    Outcome sql(const std::string& statement, std::vector<std::string> options = {}) {
        options.insert(options.end(), {file_.string(), statement});
        options.insert(options.begin(), "sql");
        return runVelt(options);
    }

    TempFolder folder_;
    std::filesystem::path file_ = folder_ / "Prova.mdb";
};

TEST_F(VeltTest, WritesEveryValueAsCsv) {
    const Outcome outcome = sql("SELECT * FROM Valori");
    EXPECT_EQ(outcome.exitCode, 0) << outcome.error;
    EXPECT_EQ(outcome.output,
              "Numero,Singolo,Data,Sì,Testo\r\n"
              "0.1,0.1,2006-03-14 07:30:00,1,semplice\r\n"
              "0.3333333333333333,16777216,1899-12-29 06:00:00.001,0,\"a \"\"b\"\", c\"\r\n"
              "1e+300,-0.5,2006-03-14 07:30:00,0,\"due\r\nrighe\"\r\n"
              "1000000,1e-10,10000000,1,\"\"\r\n"
              "-9007199254740992,0,2006-03-14 07:30:00,1,\x1B[2J\tPerché €\r\n"
              ",,,0,\r\n");
}

TEST_F(VeltTest, ATerminalGetsAnAlignedTable) {
    EXPECT_EQ(sql("SELECT Numero, Testo, Sì FROM Valori WHERE Numero < 1 ORDER BY Numero DESC",
                  {"--table"})
                  .output,
              "Numero              Testo              Sì\n"
              "------------------  -----------------  --\n"
              "0.3333333333333333  a \"b\", c            0\n"
              "               0.1  semplice            1\n"
              " -9007199254740992  \\x1B[2J\\tPerché €   1\n"
              "(3 rows)\n");

    const int terminal = posix_openpt(O_RDWR | O_NOCTTY);
    if (terminal < 0) GTEST_SKIP() << "this system has no terminals";
    ASSERT_TRUE(grantpt(terminal) == 0 && unlockpt(terminal) == 0);
    const int other = open(ptsname(terminal), O_RDWR | O_NOCTTY);
    EXPECT_EQ(
        runVelt({"sql", file_.string(), "SELECT 1 AS Uno"}, [&] { dup2(other, STDOUT_FILENO); })
            .exitCode,
        0);
    std::string seen(100, '\0');
    EXPECT_GT(read(terminal, seen.data(), seen.size()), 0);
    EXPECT_THAT(seen, StartsWith("Uno\r\n---\r\n  1\r\n(1 row)\r\n"));
    close(other);
    close(terminal);
}

TEST_F(VeltTest, ListsTablesAndCountsRowsThatCannotBeRead) {
    EXPECT_EQ(runVelt({"tables", "--csv", folder_.path().string() + "\\PROVA.MDB"}).output,
              "table,rows,columns\r\nValori,6,5\r\nAltra tabella,2,1\r\n");
    EXPECT_EQ(runVelt({"tables", file_.string()}).output,
              "Valori: 6 rows\n"
              "    Numero   Double\n"
              "    Singolo  Single\n"
              "    Data     Date/Time\n"
              "    Sì       Yes/No\n"
              "    Testo    Text(40)\n"
              "Altra tabella: 2 rows\n"
              "    K  Long\n");

    // A row that cannot be read.
    std::string bytes = test::bytesOf(file_);
    const std::size_t row =
        bytes.find(std::string(reinterpret_cast<const char*>(&landmark), sizeof landmark));
    ASSERT_NE(row, std::string::npos);
    bytes.replace(row - 2, 2, "\xFF\xFF");  // the row's count of columns
    test::writeBytes(file_, bytes);

    const Outcome tables = runVelt({"tables", "--csv", file_.string()});
    EXPECT_THAT(tables.output, HasSubstr("\r\nAltra tabella,1,1\r\n"));
    EXPECT_THAT(tables.error, HasSubstr("Altra tabella: 1 row could not be read"));
    EXPECT_THAT(sql("SELECT COUNT(K) FROM [Altra tabella]").error,
                HasSubstr("1 row could not be read"));
}

TEST_F(VeltTest, WhatCannotBeDoneIsToldAndChangesNothing) {
    const std::string before = test::bytesOf(file_);
    ASSERT_EQ(mkfifo((folder_ / "tubo").c_str(), 0600), 0);
    test::writeBytes(folder_ / "testo.mdb", std::string(10000, 'x'));
    std::vector<std::pair<std::vector<std::string>, std::string>> cases;
    const std::string attach = "ATTACH '" + (folder_ / "altro").string() + "' AS a";
    for (const std::string& statement : {attach, std::string("SELECT 1; DELETE FROM Valori")})
        cases.push_back({{"sql", file_.string(), statement}, ""});
    cases.push_back({{"sql", file_.string(), neverEnding, "--timeout=0.2"}, "Tempo scaduto"});
    for (const char* name : {"manca.mdb", "", "tubo", "testo.mdb"})
        cases.push_back({{"tables", (folder_ / name).string()}, name});
    for (const auto& [arguments, problem] : cases) {
        const Outcome outcome = runVelt(arguments);
        const std::string what = testing::PrintToString(arguments).substr(0, 200);
        EXPECT_EQ(outcome.exitCode, 1) << what;
        EXPECT_EQ(outcome.output, "") << what;
        EXPECT_THAT(outcome.error, AllOf(StartsWith("velt: error "), HasSubstr(problem))) << what;
    }
    EXPECT_EQ(test::bytesOf(file_), before);
    EXPECT_FALSE(std::filesystem::exists(folder_ / "altro"));
}

TEST_F(VeltTest, OutputThatIsLostIsAFailure) {
    const std::vector<std::function<void()>> outputs = {
        [] { dup2(open("/dev/full", O_WRONLY), STDOUT_FILENO); },
        [] {
            int ends[2];
            if (pipe(ends) != 0) _exit(3);
            close(ends[0]);
            dup2(ends[1], STDOUT_FILENO);
        }};
    for (const auto& output : outputs) {
        const Outcome outcome = runVelt({"tables", file_.string()}, output);
        EXPECT_EQ(outcome.exitCode, 1);
        EXPECT_THAT(outcome.error, HasSubstr("standard output"));
    }
}

TEST_F(VeltTest, ExplainsItselfAndTellsWrongUsage) {
    EXPECT_THAT(runVelt({"rtu", "--help"}).output, StartsWith("Usage: velt rtu"));
    EXPECT_THAT(runVelt({"--help"}).output, HasSubstr("  sql "));
    EXPECT_THAT(runVelt({"--version"}).output, StartsWith("velt " VELT_VERSION "\n"));
    // FILE stands for the file, "|" between the arguments.
    for (const char* line :
         {"", "tabelle", "tables", "tables|FILE|FILE", "tables|--table|FILE", "tables|--csv=1|FILE",
          "sql|--csv|--table|FILE|SELECT 1", "sql|FILE|SELECT 1|--timeout",
          "sql|--timeout|0|FILE|SELECT 1", "sql|--timeout=1|--timeout=2|FILE|SELECT 1",
          "sql|--|--csv|FILE|SELECT 1", "opc|leggi|x", "opc|watch|x", "opc|browse|--seconds|1|x",
          "opc|watch|--seconds|x|x|RTU01", "rtu|dial|x|A", "trend|FILE|T|--from=2006-03-14",
          "trend|FILE|T|--from=2006-03-14|--to=ieri",
          "trend|FILE|T|--from=2006-03-14|--to=2006-03-13"}) {
        std::vector<std::string> arguments;
        std::istringstream parts(line);
        for (std::string part; std::getline(parts, part, '|');)
            arguments.push_back(part == "FILE" ? file_.string() : part);
        const Outcome outcome = runVelt(arguments);
        EXPECT_EQ(outcome.exitCode, 2) << line;
        EXPECT_EQ(outcome.output, "") << line;
        EXPECT_THAT(outcome.error, StartsWith("velt: ")) << line;
    }
}

}  // namespace
}  // namespace velt::cli
