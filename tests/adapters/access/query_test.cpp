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
    EXPECT_THAT(
        file_.texts("SELECT Allarme FROM Allarmi GROUP BY Allarme ORDER BY Allarme"),
        ElementsAre("-", "Antico", "Futuro", "Livello alto", "Porta", "Torbidita", "Torbidità"));
    EXPECT_THAT(file_.texts("SELECT DISTINCT vrx FROM ALLARMI ORDER BY vrx DESC"),
                ElementsAre("RTU10", "RTU03", "RTU02", "RTU01", "L'Aquila", "", "-"));
}

TEST_F(Query, ShortcutForListsAnswersAsTheEngineDoes) {
    for (const std::string& column :
         std::vector<std::string>{"Data", "VRX", "Allarme", "Descrizione"}) {
        const std::string rest = " FROM Allarmi GROUP BY " + column;
        for (const std::string& order : {" ORDER BY " + column, " ORDER BY " + column + " DESC"}) {
            // The condition is always true, and too much for the shortcut.
            const Texts plain =
                file_.texts("SELECT " + column + rest + " HAVING Count(*) > 0" + order);
            EXPECT_EQ(file_.texts("SELECT " + column + rest + order), plain) << column << order;
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
        {"Data BETWEEN #1/1/1850# AND #6/1/1850 12:00:00#", {"il mattino"}},
        {"VRX = 'rtu10' ORDER BY Data", {"il mattino", "la sera", "alla fine"}},
        {"Allarme IS NULL OR Data = Null OR VRX = Null", {"-"}},
        {"VRX = 'rtu01   '", {"primo", "secondo"}},
        {"VRX <> 'rtu01' AND Data < #1/1/1900#", {"la sera", "il mattino"}},
        {"Allarme = 'torbidità'", {"", "senza data"}},
        {"Allarme = 'TORBIDITA'", {"senza nome"}},
        {"VRX = ''", {"nome vuoto"}},
        {"VRX = \"L'Aquila\"", {"apostrofo"}},
        {"Descrizione IS NULL AND NOT VRX IS NULL", {"-"}},
        {"Descrizione = '  '", {""}},
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
        {"'' & VRX = 'rtu03'", {"senza data"}},
        {"'rtu03' = UCase(VRX)", {"senza data"}},
        {"VRX > 'l' AND VRX < 'rtu02'", {"primo", "secondo", "apostrofo"}},
        {"Allarme LIKE 'torb*'", {"", "senza data", "senza nome"}},
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
        {"SELECT a.Descrizione, b.Descrizione FROM Allarmi AS a INNER JOIN Allarmi AS b "
         "ON a.VRX = b.VRX AND a.Data < b.Data WHERE a.VRX = 'RTU10' ORDER BY a.Data, b.Data",
         {"il mattino|la sera", "il mattino|alla fine", "la sera|alla fine"}},
        {"SELECT a.Descrizione, b.VRX FROM Allarmi AS a LEFT JOIN Allarmi AS b "
         "ON a.VRX = b.VRX AND a.Data < b.Data WHERE a.Allarme = 'Futuro'",
         {"alla fine|-"}},
        {"SELECT VRX & '/' & Data FROM Allarmi WHERE Allarme IS NULL", {"/"}},
    };
    for (const auto& [statement, rows] : cases)
        EXPECT_EQ(file_.texts(statement), rows) << statement;
}

TEST_F(Query, NamesOfColumns) {
    const auto rows = file_.query(
        "SELECT TOP 9 vrx, [ALLARME], Allarmi.data, Count(*), Max(data) AS Ultima "
        "FROM allarmi GROUP BY vrx, allarme, data");
    const char* const expected[] = {"VRX", "Allarme", "Data", "Expr1003", "Ultima"};
    ASSERT_EQ(rows->columnCount(), std::size(expected));
    for (std::size_t i = 0; i < std::size(expected); ++i)
        EXPECT_EQ(rows->columnName(i), expected[i]);
}

TEST_F(Query, ColumnsKeepTheirKindWithoutRows) {
    const auto rows = file_.query("SELECT Data, VRX FROM Allarmi WHERE VRX = 'nessuno'");
    EXPECT_EQ(rows->rowCount(), 0U);
    EXPECT_EQ(rows->columnType(0), FieldType::Date);
    EXPECT_EQ(rows->columnType(1), FieldType::Text);
}

TEST_F(Query, PushedDownRangesAndOrdersAnswerAsTheEngineDoes) {
    // Random rows; `+ 0` keeps the engine from handing the condition or the order to the table.
    std::mt19937 random(7);  // NOLINT(cert-msc51-cpp): the same rows in every run
    std::vector<Row> rows;
    for (int i = 0; i < 500; ++i) {
        const double day = static_cast<double>(static_cast<int>(random() % 80) - 40) / 4;
        rows.push_back({random() % 20 == 0 ? Variant(Null{}) : Variant(Date(day)),
                        Date(static_cast<double>(random() % 5)), std::int32_t{i}});
    }
    file_.addTable(
        "Casuale",
        {{"D", jet::ColumnType::Date}, {"E", jet::ColumnType::Date}, {"N", jet::ColumnType::Long}},
        rows);
    const char* const conditions[] = {
        "{D} >= #12/27/1899 06:00:00#",
        "{D} > #12/27/1899 06:00:00# AND {D} <= #1/2/1900#",
        "{D} >= #1/2/1900# AND {D} <= #12/27/1899#",
        "{D} > #12/25/1899# AND {D} > #12/29/1899# AND {D} < #1/3/1900# AND {E} >= #1/1/1900#",
        "{D} BETWEEN #12/28/1899# AND #1/1/1900# OR {D} > #1/5/1900# OR {E} = #12/31/1899#",
        "{D} >= #12/27/1899 06:00:00# AND {D} <= #1/2/1900#",
        "({D} >= #12/29/1899# AND {D} <= #12/31/1899 18:00:00#)",
        "{D} = #12/29/1899#",
        "{D} >= Null",
        "{D} < {E}",
        "NOT {D} < #1/1/1900#",
        "{D} > #1/1/1900# AND N IN (SELECT N FROM Casuale WHERE {E} > #12/31/1899#)",
    };
    const auto with = [](std::string text, const std::string& d, const std::string& e) {
        for (auto at = text.find('{'); at != std::string::npos; at = text.find('{'))
            text.replace(at, 3, text[at + 1] == 'D' ? d : e);
        return text;
    };
    for (const char* condition : conditions) {
        for (const char* direction : {"", " DESC"}) {
            const std::string start = "SELECT N, D FROM Casuale WHERE ";
            const Texts pushed =
                file_.texts(start + with(condition, "D", "E") + " ORDER BY D" + direction);
            // Equal dates in the order of the file, which N counts.
            const Texts plain = file_.texts(start + with(condition, "(D + 0)", "(E + 0)") +
                                            " ORDER BY D + 0" + direction + ", N");
            EXPECT_EQ(pushed, plain) << condition << direction;
        }
    }
}

TEST_F(Query, AStretchOfTimeIsAnsweredAsTheEngineDoes) {
    using jet::ColumnType;
    const Date day(38790.25);
    const Null null;
    file_.addTable("Misure",
                   {{"Data", ColumnType::Date},
                    {"Si", ColumnType::Boolean},
                    {"B", ColumnType::Byte},
                    {"L", ColumnType::Long},
                    {"S", ColumnType::Single},
                    {"Soldi", ColumnType::Currency},
                    {"Testo", ColumnType::Text},
                    {"Altra", ColumnType::Date}},
                   {{Date(38792), true, std::uint8_t{255}, -1, 0.1F, 12.5, "a", Date(-1.25)},
                    {day, false, null, null, null, null, null, null},
                    {Date(38791), true, std::uint8_t{0}, 7, -2.5F, -0.01, "b", Date(1.5)},
                    {null, true, std::uint8_t{1}, 1, 1.0F, 1.0, "c", Date(1)},
                    {Date(38800), true, std::uint8_t{1}, 1, 1.0F, 1.0, "d", Date(1)}});
    const std::string where =
        " FROM misure WHERE (DATA >= #2006-03-14 06:00:00# AND DATA <= #2006-03-17#) ORDER BY DATA";
    for (const char* columns :
         {"Data", "Data, Si", "B, L", "S, Soldi, altra", "l, Data, L", "Testo", "Data, Testo"}) {
        SCOPED_TRACE(columns);
        const auto quick = file_.query("SELECT " + std::string(columns) + where);
        const auto slow = file_.query("SELECT " + std::string(columns) + where + " + 0");
        ASSERT_EQ(quick->columnCount(), slow->columnCount());
        EXPECT_EQ(quick->rowCount(), 3U);
        for (std::size_t i = 0; i < quick->columnCount(); ++i) {
            EXPECT_EQ(quick->columnName(i), slow->columnName(i));
            EXPECT_EQ(quick->columnType(i), slow->columnType(i));
        }
        EXPECT_EQ(file_.texts("SELECT " + std::string(columns) + where),
                  file_.texts("SELECT " + std::string(columns) + where + " + 0"));
    }
    const std::pair<std::string, int> errors[] = {
        {"SELECT Nessuna" + where, 3061},
        {"SELECT D FROM No WHERE D >= #1/1/2000# AND D <= #1/1/2001# ORDER BY D", 3078},
        {"SELECT L FROM Misure WHERE Testo >= #1/1/2000# AND Testo <= #1/1/2001# ORDER BY Testo",
         13},
    };
    for (const auto& [statement, number] : errors)
        EXPECT_EQ(file_.error(statement).Number(), number) << statement;
}

TEST_F(Query, Functions) {
    const std::pair<const char*, const char*> cases[] = {
        {"Left('città', 5)", "città"},
        {"Right('città', 2)", "tà"},
        {"Right('ab', 5)", "ab"},
        {"Mid('città', 2, 2)", "it"},
        {"Mid('città', 5)", "à"},
        {"Len('città')", "5"},
        {"UCase('città')", "CITTÀ"},
        {"Nz(Null, 7)", "7"},
        {"Nz(Null)", ""},
        {"Int(-1.5)", "-2"},
        {"Fix(-1.5)", "-1"},
        {"Round(2.5)", "2"},
        {"Round(1.25, 1)", "1.2"},
        {"7 / 2", "3.5"},
        {"1--1", "2"},
        {"1 + 2 & 3 * 4", "312"},
        {"7 - 1 & 'x' = (5 + 1) & 'X'", "1"},
        {"1.50 & -2", "1.5-2"},
        {"Len(Null)", "-"},
        {"True & False", "-10"},
        {"IsNull(Null)", "-1"},
        {"Hour(#1850-06-01 18:00:00#)", "18"},
        {"Year(1e9)", "-"},
        {"Now() >= Date() AND Now() < Date() + 1.1", "1"},
    };
    for (const auto& [expression, expected] : cases)
        EXPECT_THAT(file_.texts(std::string("SELECT ") + expression), ElementsAre(expected))
            << expression;
}

}  // namespace
}  // namespace velt::access
