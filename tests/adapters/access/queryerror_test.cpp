// SPDX-License-Identifier: MIT
// Statements and files that are at fault, and statements that mean harm.
#include "tests/adapters/access/accessfile.h"
#include "tests/filebytes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <thread>

namespace velt::access {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

constexpr int Mismatch = 13;
constexpr int OutOfMemory = 14;
constexpr int Cancelled = 3059;
constexpr int UnknownColumn = 3061;
constexpr int Unsupported = 3065;
constexpr int Syntax = 3075;
constexpr int UnknownTable = 3078;
constexpr int Ambiguous = 3079;
constexpr int UnknownFunction = 3085;
constexpr int TimeExpired = -2147217871;

class QueryError : public ::testing::Test {
protected:
    QueryError() { file_.addAlarms(); }
    AccessFile file_;
};

TEST_F(QueryError, NumbersAndDescriptions) {
    file_.addTable("Storta", {{"Data", jet::ColumnType::Text, 50}, {"VRX", jet::ColumnType::Long}},
                   {{"14/03/2006", std::int32_t{1}}, {Null{}, Null{}}});
    struct Case {
        std::string statement;
        int number;
        const char* part = "";  ///< of the description
    };
    const Case cases[] = {
        {"SELECT Sbagliata FROM Allarmi", UnknownColumn, "\"Sbagliata\""},
        {"SELECT Data FROM [Non c'è]", UnknownTable, "\"Non c'è\""},
        {"SELECT name FROM MSysObjects", UnknownTable},
        {"SELECT Data FROM Allarmi a, Allarmi b", Ambiguous},
        {"SELECT Sbagliata(Data) FROM Allarmi", UnknownFunction},
        {"SELECT TOP 1 Data + 1 & [VRX] FORM Allarmi, Allarmi, Allarmi", Syntax,
         "[VRX] FORM Allarmi, Allarm..."},
        {"SELECT Data FROM Allarmi WHERE (VRX = 'L'Aquila')", Syntax},
        {"  ;", Syntax, "istruzione vuota"},
        {"SELECT a FROM t WHERE b = \"x'", Syntax, "stringa non chiusa"},
        {"SELECT Data FROM Allarmi WHERE (Data > #2006-02-30#)", Syntax, "#2006-02-30#"},
        {"SELECT Data FROM Allarmi WHERE Data > #31/12/2006#", Syntax, "#31/12/2006#"},
        {"SELECT 12ab FROM t", Syntax, "numero non valido"},
        {"SELECT a FROM t WHERE b = ?", Syntax, "carattere non ammesso"},
        {"SELECT (a FROM t", Syntax, "parentesi non chiusa"},
        {"SELECT TOP 1 a FROM t UNION SELECT a FROM t", Syntax, "UNION"},
        {std::string("SELECT 'a\0b' FROM t", 19), Syntax, "stringa non chiusa"},
        {"SELECT VRX FROM Allarmi WHERE VRX LIKE '[a'", 93},
        // Kinds that do not match.
        {"SELECT VRX FROM Allarmi WHERE Data = 'ieri'", Mismatch, "\"Data\""},
        {"SELECT * FROM Storta WHERE Data >= #2006-03-14#", Mismatch},
        {"SELECT * FROM Storta WHERE VRX = 'RTU01'", Mismatch},
        {"SELECT * FROM Allarmi WHERE Data > 'a' & 'b'", Mismatch},
        // Nothing but SELECT over the tables.
        {"ATTACH 'altro.db' AS x", Unsupported},
        {"SELECT * FROM sqlite_master", UnknownTable},
        {"SELECT * FROM pragma_table_list", Unsupported},
        {"SELECT load_extension('x')", UnknownFunction},
        {"SELECT 1; DROP TABLE Allarmi", Syntax},
        {"SELECT * FROM Allarmi IN 'altro.mdb'", Syntax},
        {"SELECT * FROM Allarmi -- '\n; DROP TABLE Allarmi", Syntax},
    };
    const std::string before = test::bytesOf(file_.path());
    for (const Case& c : cases) {
        const RuntimeError error = file_.error(c.statement);
        EXPECT_EQ(error.Number(), c.number) << c.statement << ": " << error.Description();
        EXPECT_THAT(error.Description(), HasSubstr(c.part)) << c.statement;
    }
    EXPECT_EQ(test::bytesOf(file_.path()), before);
    EXPECT_THAT(file_.texts("SELECT VRX FROM Storta WHERE Data = '14/03/2006'"), ElementsAre("1"));
}

TEST_F(QueryError, LimitsOfLengthAndDepth) {
    EXPECT_EQ(file_.error("SELECT '" + std::string(2'000'000, 'x') + "'").Number(), Syntax);
    std::string deep = "1";
    for (int i = 0; i < 5000; ++i) deep = "(" + deep + " + 1)";
    EXPECT_EQ(file_.error("SELECT " + deep).Number(), Syntax);
    std::string chain = "SELECT Data FROM Allarmi WHERE VRX = 'x'";
    for (int i = 0; i < 3000; ++i) chain += " OR Data = " + std::to_string(i);
    EXPECT_EQ(file_.error(chain).Number(), Syntax);

    std::string stars;
    for (int i = 0; i < 300; ++i) stars += "*a";
    const std::string text(20'000, 'a');
    EXPECT_EQ(file_.texts("SELECT '" + text + "' LIKE '" + stars + "b'").front(), "0");

    // As many stations as anybody will have are no such chain.
    std::string stations = "(VRX = 'RTU01')";
    for (int i = 2; i < 5000; ++i) stations += " OR (VRX = 'S" + std::to_string(i) + "')";
    EXPECT_THAT(
        file_.texts("SELECT Descrizione FROM Allarmi WHERE ((" + stations + ")) ORDER BY Data"),
        ElementsAre("secondo", "primo"));
}

/// A statement that would run for years.
std::string endless() {
    std::string tables = "Allarmi a0";
    for (int i = 1; i < 12; ++i) tables += ", Allarmi a" + std::to_string(i);
    return "SELECT Count(*) FROM " + tables + " WHERE a0.Data + a11.Data < 0";
}

TEST_F(QueryError, EndlessQueryEndsAtItsLimitsAndWhenStopped) {
    const auto run = [this](const std::string& statement, const QueryLimits& limits,
                            const std::stop_token& stop = {}) {
        return raisedBy([&] { (void)QueryEngine(file_.path(), limits).run(statement, stop); })
            .Number();
    };
    EXPECT_EQ(run(endless(), {.runTime = std::chrono::milliseconds(50)}), TimeExpired);
    const std::string tables =
        " FROM Allarmi a, Allarmi b, Allarmi c, Allarmi d, Allarmi e, Allarmi f";
    for (const std::string& statement :
         {"SELECT a.VRX" + tables, "SELECT a.Data + b.Data" + tables + " ORDER BY a.Data + 0"})
        EXPECT_EQ(run(statement, {.memory = 1'000'000}), OutOfMemory) << statement;

    std::stop_source stop;
    int stopped = 0;
    std::thread worker([&] { stopped = run(endless(), {}, stop.get_token()); });
    stop.request_stop();
    worker.join();
    EXPECT_EQ(stopped, Cancelled);
}

}  // namespace
}  // namespace velt::access
