// SPDX-License-Identifier: MIT
// What statements answer: filters, order, groups, names and kinds of columns.
#include "tests/adapters/access/accessfile.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>

namespace velt::access {
namespace {

using ::testing::ElementsAre;

using Texts = std::vector<std::string>;

class Query : public ::testing::Test {
protected:
    Query() { file_.addAlarms(); }
    AccessFile file_;
};

TEST_F(Query, ListsOfStationsAndAlarms) {
    // Null and the empty text are groups of their own; the first spelling stands for all.
    EXPECT_THAT(file_.texts("SELECT VRX From Allarmi GROUP BY VRX ORDER BY VRX"),
                ElementsAre("-", "", "L'Aquila", "RTU01", "RTU02", "RTU03", "RTU10"));
    for (const std::string column : {"Data", "VRX", "Allarme", "Descrizione"}) {
        const std::string list = "SELECT " + column + " FROM Allarmi GROUP BY " + column;
        for (const std::string& order : {" ORDER BY " + column, " ORDER BY " + column + " DESC"}) {
            // The condition is always true, and too much for the shortcut.
            const Texts plain = file_.texts(list + " HAVING Count(*) > 0" + order);
            EXPECT_EQ(file_.texts(list + order), plain) << column << order;
            EXPECT_GT(plain.size(), 3U);
        }
    }
}

TEST_F(Query, ConditionsCompareAsAccessDoes) {
    const std::pair<const char*, Texts> cases[] = {
        {"((Data >= #2006-03-14 07:30:00# AND Data <= #2006-04-18 07:30:00#)) ORDER BY Data",
         {"primo", "apostrofo", "senza nome", "nome vuoto", "-"}},
        {"(Data > #2006-03-14 07:30:00# AND Data < #2006-04-18 07:30:00#) ORDER BY Data DESC",
         {"senza nome", "nome vuoto", "apostrofo"}},
        {"VRX = 'rtu10' ORDER BY Data", {"il mattino", "la sera", "alla fine"}},
        {"VRX <> 'rtu01' AND Data < #1/1/1900#", {"la sera", "il mattino"}},
        {"Allarme = 'torbidità'", {"", "senza data"}},
        {"Descrizione IS NULL AND NOT VRX IS NULL", {"-"}},
        {"VRX IN ('rtu03', 'l''AQUILA')", {"senza data", "apostrofo"}},
        // Many equalities become one list, but only where nothing else is in the bracket.
        {"((VRX = 'rtu03') OR (VRX = 'x') OR (VRX = 'RTU02 ') OR (VRX = 'y'))",
         {"-", "", "senza data"}},
        {"((VRX = 'rtu03') OR (VRX = 'x') OR (VRX = 'RTU02') OR (VRX = 'RTU10') AND Data < 0)",
         {"-", "", "senza data", "la sera", "il mattino"}},
        {"((VRX = 'rtu03') OR (VRX = 'x') OR (VRX = 'y') OR (Allarme = 'Futuro'))",
         {"senza data", "alla fine"}},
        // A text beside an expression is compared as one beside a column.
        {"VRX & '' = 'rtu03'", {"senza data"}},
        {"Allarme LIKE 'Torbidit?' AND VRX LIKE 'RTU##'", {"", "senza data"}},
    };
    for (const auto& [condition, expected] : cases) {
        const Texts answer =
            file_.texts(std::string("SELECT Descrizione FROM Allarmi WHERE ") + condition);
        EXPECT_EQ(answer, expected) << condition;
    }
}

TEST_F(Query, ExtremesTopAndJoins) {
    const std::pair<const char*, Texts> cases[] = {
        {"SELECT Min(Data), Max(Data), Count(*), Count(Data) FROM Allarmi",
         {"1850-06-01 06:00:00|9999-12-31 23:59:59|12|10"}},
        {"SELECT TOP 2 Descrizione FROM Allarmi WHERE Data > #1/1/2000# ORDER BY Data",
         {"secondo", "primo"}},
        {"SELECT Count(*) FROM (SELECT DISTINCT TOP 2 VRX FROM Allarmi) AS s", {"2"}},
        {"SELECT a.Descrizione, b.VRX FROM Allarmi AS a LEFT JOIN Allarmi AS b "
         "ON a.VRX = b.VRX AND a.Data < b.Data WHERE a.Allarme = 'Futuro'",
         {"alla fine|-"}},
    };
    for (const auto& [statement, rows] : cases)
        EXPECT_EQ(file_.texts(statement), rows) << statement;
}

TEST_F(Query, PushedDownRangesAndOrdersAnswerAsTheEngineDoes) {
    // Random rows in the order of N. The engine sorts by itself where there is a second column, and
    // `+ 0` keeps it from handing a condition to the table.
    std::mt19937 random(7);  // NOLINT(cert-msc51-cpp): the same rows in every run
    const Variant texts[] = {"Città", "CITTÀ  ", "citta", "", Null{}, "RTU10", "rtu 2", "10", "9"};
    std::vector<Row> rows;
    for (int i = 0; i < 500; ++i) {
        const double day = static_cast<double>(static_cast<int>(random() % 80) - 40) / 4;
        rows.push_back({random() % 20 == 0 ? Variant(Null{}) : Variant(Date(day)),
                        Date(static_cast<double>(random() % 5)), texts[random() % std::size(texts)],
                        day > 5 ? Variant(Null{}) : Variant(day), std::int32_t{i}, i % 2 == 0,
                        static_cast<float>(day)});
    }
    using jet::ColumnType;
    file_.addTable("Casuale",
                   {{"D", ColumnType::Date},
                    {"E", ColumnType::Date},
                    {"T", ColumnType::Text},
                    {"R", ColumnType::Double},
                    {"N", ColumnType::Long},
                    {"Si", ColumnType::Boolean},
                    {"S", ColumnType::Single}},
                   rows);
    const auto kinds = [this](const std::string& statement) {
        const auto answer = file_.query(statement);
        std::string text;
        for (std::size_t i = 0; i < answer->columnCount(); ++i)
            text += answer->columnName(i) + std::to_string(static_cast<int>(answer->columnType(i)));
        return text;
    };
    const auto compare = [&](const std::string& condition, const std::string& column) {
        const auto with = [](std::string text, const std::string& behind) {
            for (auto at = text.find('}'); at != std::string::npos; at = text.find('}'))
                text.replace(text.find('{'), 3, text[at - 1] + behind);
            return text;
        };
        for (const std::string direction : {"", " DESC"}) {
            const std::string select = "SELECT n, D, E, R, Si, S, N FROM Casuale WHERE ";
            const std::string order = " ORDER BY " + column + direction;
            const std::string quick = select + with(condition, "") + order;
            const std::string slow = select + with(condition, " + 0") + order + ", N";
            EXPECT_EQ(file_.texts(quick), file_.texts(slow)) << condition << order;
            EXPECT_EQ(kinds(quick), kinds(slow)) << condition << order;
        }
    };
    for (const char* condition :
         {"{D} >= #12/27/1899 06:00:00#", "{D} > #12/27/1899 06:00:00# AND {D} <= #1/2/1900#",
          "{D} > #12/25/1899# AND {D} > #12/29/1899# AND {D} < #1/3/1900# AND {E} >= #1/1/1900#",
          "{D} BETWEEN #12/28/1899# AND #1/1/1900# OR {D} > #1/5/1900# OR {E} = #12/31/1899#",
          "({D} >= #12/29/1899# AND {D} <= #12/31/1899 18:00:00#)", "{D} = #12/29/1899#",
          "{D} >= Null", "{D} < {E}", "NOT {D} < #1/1/1900#",
          "{D} > #1/1/1900# AND N IN (SELECT N FROM Casuale WHERE {E} > #12/31/1899#)"})
        compare(condition, "D");
    for (const char* column : {"E", "T", "R"}) compare("N >= 0", column);
    EXPECT_EQ(file_.error("SELECT X FROM Casuale WHERE (D >= #1/1/1900#) ORDER BY D").Number(),
              3061);
}

TEST_F(Query, ExpressionsGoByTheRulesOfAccess) {
    const std::pair<const char*, const char*> cases[] = {
        {"Mid('città', 5)", "à"},
        {"Len('città')", "5"},
        {"Nz(Null)", ""},
        {"Int(-1.5)", "-2"},
        {"Round(2.5)", "2"},
        {"7 / 2", "3.5"},
        {"1 + 2 & 3 * 4", "312"},
        {"Len(Null)", "-"},
        {"True & False", "-10"},
        // The month first, in every locale.
        {"#3/4/2006 7:30 PM#", "38780.8125"},
        {"#3/14/29# - #3/14/30#", "36160"},
        {"#07:30#", "0.3125"},
        {"Hour(#1850-06-01 18:00:00#)", "18"},
        {"'rtu07' LIKE 'RTU##' AND 'dx' LIKE '[!a-c]?' AND 'a*' LIKE 'A[*]'", "1"},
        {"'abc' LIKE 'a%' OR 'abc' LIKE 'a_c' OR 'citta' LIKE 'città' OR 'ab' LIKE 'a*c'", "0"},
    };
    for (const auto& [expression, expected] : cases)
        EXPECT_THAT(file_.texts(std::string("SELECT ") + expression), ElementsAre(expected))
            << expression;
}

}  // namespace
}  // namespace velt::access
