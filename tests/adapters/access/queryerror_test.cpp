// SPDX-License-Identifier: MIT
// Statements and files that are at fault, and statements that mean harm.
#include "platform/runtimeerror.h"
#include "tests/adapters/access/accessfile.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <fstream>
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

    std::string descriptionOf(const std::string& statement) const {
        try {
            static_cast<void>(file_.query(statement));
            return "none";
        } catch (const RuntimeError& error) {
            return error.Description();
        }
    }
    AccessFile file_;
};

TEST_F(QueryError, Numbers) {
    const std::pair<const char*, int> cases[] = {
        {"SELECT Sbagliata FROM Allarmi", UnknownColumn},
        {"SELECT Data FROM Allarmi WHERE Sbagliata = 1", UnknownColumn},
        {"SELECT Data FROM Allarmi ORDER BY Sbagliata", UnknownColumn},
        {"SELECT Sbagliata FROM Allarmi GROUP BY Sbagliata ORDER BY Sbagliata", UnknownColumn},
        {"SELECT a.Data FROM Allarmi b", UnknownColumn},
        {"SELECT VRX FROM Allarmi WHERE VRX = RTU01", UnknownColumn},
        {"SELECT Data FROM Sbagliata", UnknownTable},
        {"SELECT Data FROM Sbagliata GROUP BY Data", UnknownTable},
        {"SELECT Data FROM Allarmi INNER JOIN [Altra Tabella] ON 1 = 1", UnknownTable},
        {"SELECT name FROM MSysObjects", UnknownTable},
        {"SELECT Data FROM Allarmi a, Allarmi b", Ambiguous},
        {"SELECT Sbagliata(Data) FROM Allarmi", UnknownFunction},
        {"SELECT Left(VRX) FROM Allarmi", Syntax},
        {"SELECT Data Allarmi", Syntax},
        {"SELECT FROM Allarmi", Syntax},
        {"SELECT Data FROM Allarmi WHERE", Syntax},
        {"SELECT Data FROM Allarmi WHERE (VRX = 'L'Aquila')", Syntax},
        {"SELECT Data FROM Allarmi WHERE Data = #ieri#", Syntax},
        {"SELECT VRX FROM Allarmi WHERE Count(*) > 1", Syntax},
        {"SELECT Data FROM Allarmi LIMIT 1", Syntax},
        {"UPDATE Allarmi SET VRX = ''", Unsupported},
        {"SELECT VRX FROM Allarmi WHERE VRX LIKE '[a'", 93},
        {"SELECT Mid(VRX, 0) FROM Allarmi WHERE VRX = 'RTU01'", 5},
    };
    for (const auto& [statement, number] : cases)
        EXPECT_EQ(file_.errorOf(statement), number)
            << statement << ": " << descriptionOf(statement);
}

TEST_F(QueryError, DescriptionsSayWhatAndWhere) {
    EXPECT_THAT(descriptionOf("SELECT Sbagliata FROM Allarmi"), HasSubstr("\"Sbagliata\""));
    EXPECT_THAT(descriptionOf("SELECT Data FROM [Non c'è]"), HasSubstr("\"Non c'è\""));
    EXPECT_THAT(descriptionOf("SELECT Data FORM Allarmi WHERE 1 = 1"), HasSubstr("FORM Allarmi"));
    EXPECT_THAT(descriptionOf("SELECT Data FROM Allarmi WHERE (Data > #2006-02-30#)"),
                HasSubstr("#2006-02-30#"));
    EXPECT_THAT(descriptionOf("SELECT VRX FROM Allarmi WHERE Data = 'ieri'"),
                HasSubstr("\"Data\""));
}

TEST_F(QueryError, ComparingKindsThatDoNotMatch) {
    file_.addTable("Storta", {{"Data", jet::ColumnType::Text, 50}, {"VRX", jet::ColumnType::Long}},
                   {{"14/03/2006", std::int32_t{1}}, {Null{}, Null{}}});
    for (const char* statement :
         {"SELECT * FROM Storta WHERE Data >= #2006-03-14#",
          "SELECT * FROM Storta WHERE VRX = 'RTU01'",
          "SELECT * FROM Storta WHERE Data BETWEEN #2006-03-14# AND #2006-03-15#",
          "SELECT * FROM Allarmi WHERE Data > '2006-03-14'", "SELECT * FROM Allarmi WHERE VRX <> 5",
          "SELECT * FROM Allarmi WHERE Data > 'a' & 'b'"})
        EXPECT_EQ(file_.errorOf(statement), Mismatch) << statement;
    // Without a comparison the kind does not matter.
    EXPECT_THAT(file_.texts("SELECT Data, VRX FROM Storta ORDER BY Data"),
                ElementsAre("-|-", "14/03/2006|1"));
    EXPECT_THAT(file_.texts("SELECT VRX FROM Storta WHERE Data = '14/03/2006'"), ElementsAre("1"));
}

TEST_F(QueryError, NothingButSelectOverTheTablesIsAllowed) {
    const auto before = std::filesystem::file_size(file_.path());
    for (const char* statement : {"ATTACH 'altro.db' AS x",
                                  "PRAGMA table_list",
                                  "DROP TABLE Allarmi",
                                  "VACUUM",
                                  "SELECT * FROM sqlite_master",
                                  "SELECT * FROM sqlite_schema",
                                  "SELECT * FROM pragma_table_list",
                                  "SELECT * FROM json_each('[1]')",
                                  "SELECT * FROM dbstat",
                                  "SELECT load_extension('x')",
                                  "SELECT readfile('/etc/passwd')",
                                  "SELECT writefile('x', 'y')",
                                  "SELECT sqlite_version()",
                                  "SELECT randomblob(1000000000)",
                                  "SELECT printf('%*d', 1000000000, 1)",
                                  "SELECT Data INTO Copia FROM Allarmi",
                                  "SELECT 1; DROP TABLE Allarmi",
                                  "SELECT * FROM Allarmi IN 'altro.mdb'",
                                  "SELECT * FROM Allarmi -- '\n; DROP TABLE Allarmi",
                                  "SELECT /* */ Data FROM Allarmi",
                                  "SELECT * FROM [Allarmi](1)"})
        EXPECT_NE(file_.errorOf(statement), 0) << statement;
    EXPECT_EQ(std::filesystem::file_size(file_.path()), before);
}

TEST_F(QueryError, LimitsOfLengthAndDepth) {
    EXPECT_EQ(file_.errorOf("SELECT '" + std::string(2'000'000, 'x') + "'"), Syntax);
    std::string deep = "1";
    for (int i = 0; i < 5000; ++i) deep = "(" + deep + " + 1)";
    EXPECT_EQ(file_.errorOf("SELECT " + deep), Syntax);
    std::string chain = "SELECT Data FROM Allarmi WHERE VRX = 'x'";
    for (int i = 0; i < 3000; ++i) chain += " OR Data = " + std::to_string(i);
    EXPECT_EQ(file_.errorOf(chain), Syntax);

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

TEST_F(QueryError, EndlessQueryEndsAtItsTimeLimit) {
    QueryLimits limits;
    limits.runTime = std::chrono::milliseconds(50);
    try {
        static_cast<void>(QueryEngine(file_.path(), limits).run(endless()));
        FAIL();
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.Number(), TimeExpired);
    }
}

TEST_F(QueryError, EndlessQueryEndsWhenStopped) {
    std::stop_source stop;
    int number = 0;
    std::thread worker([&] {
        try {
            static_cast<void>(QueryEngine(file_.path()).run(endless(), stop.get_token()));
        } catch (const RuntimeError& error) {
            number = error.Number();
        }
    });
    stop.request_stop();
    worker.join();
    EXPECT_EQ(number, Cancelled);
}

TEST_F(QueryError, StoppedBeforeItReads) {
    std::stop_source stop;
    stop.request_stop();
    for (const char* statement : {"SELECT VRX FROM Allarmi GROUP BY VRX", "SELECT * FROM Allarmi"})
        EXPECT_THROW(static_cast<void>(QueryEngine(file_.path()).run(statement, stop.get_token())),
                     RuntimeError)
            << statement;
}

TEST_F(QueryError, ResultBeyondTheMemoryLimit) {
    QueryLimits limits;
    limits.memory = 20'000'000;
    for (const char* statement : {"SELECT a.VRX FROM Allarmi a, Allarmi b, Allarmi c, Allarmi d, "
                                  "Allarmi e, Allarmi f, Allarmi g",
                                  "SELECT a.Data + b.Data + c.Data FROM Allarmi a, Allarmi b, "
                                  "Allarmi c, Allarmi d, Allarmi e, "
                                  "Allarmi f, Allarmi g ORDER BY a.Descrizione"}) {
        try {
            static_cast<void>(QueryEngine(file_.path(), limits).run(statement));
            FAIL();
        } catch (const RuntimeError& error) {
            EXPECT_EQ(error.Number(), OutOfMemory) << statement;
        }
    }
}

}  // namespace
}  // namespace velt::access
