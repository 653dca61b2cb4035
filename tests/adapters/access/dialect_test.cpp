// SPDX-License-Identifier: MIT
#include "adapters/access/dialect.h"

#include "adapters/access/distinctquery.h"
#include "platform/runtimeerror.h"

#include <gtest/gtest.h>

namespace velt::access {
namespace {

std::string translated(const std::string& statement) {
    std::string sql = translate(tokenize(statement), statement).sql;
    while (!sql.empty() && sql.back() == ' ') sql.pop_back();
    return sql;
}

struct Case {
    const char* statement;
    const char* expected;
};

TEST(Dialect, Translates) {
    const Case cases[] = {
        // Names are always quoted, so that no word of the engine's own language means anything.
        {"SELECT Data, VRX From Allarmi", R"(SELECT "Data" , "VRX" From "Allarmi")"},
        {"select [Cloro Residuo].* from [Cloro Residuo];",
         R"(select "Cloro Residuo" . * from "Cloro Residuo")"},
        {"SELECT `a\"b`, [limit], pragma FROM t", R"(SELECT "a""b" , "limit" , "pragma" FROM "t")"},
        {"SELECT Perché FROM t", R"(SELECT "Perché" FROM "t")"},
        // Texts.
        {"SELECT a FROM t WHERE a = 'L''Aquila'", R"(SELECT "a" FROM "t" WHERE "a" = 'L''Aquila')"},
        {R"(SELECT a FROM t WHERE a = "L'""x""")", R"(SELECT "a" FROM "t" WHERE "a" = 'L''"x"')"},
        // A text beside anything but a column brings its order along.
        {"SELECT a FROM t WHERE t.a = 'x' AND UCase(a) = 'x' AND 'x' = UCase(a) AND 'x' = a",
         R"(SELECT "a" FROM "t" WHERE "t" . "a" = 'x' AND "ucase" ( "a" ) = 'x' COLLATE jet )"
         R"(AND 'x' COLLATE jet = "ucase" ( "a" ) AND 'x' = "a")"},
        // Dates, also those whose stored number runs backwards.
        {"SELECT a FROM t WHERE d > #2006-03-14 07:30:00#",
         R"(SELECT "a" FROM "t" WHERE "d" > (38790.3125))"},
        {"SELECT a FROM t WHERE d > #12/29/1899 06:00:00#",
         R"(SELECT "a" FROM "t" WHERE "d" > (-0.75))"},
        // Truth values and division.
        {"SELECT a FROM t WHERE b = True OR b = false",
         R"(SELECT "a" FROM "t" WHERE "b" = (-1) OR "b" = 0)"},
        {"SELECT a/2/3 AS q FROM t", R"(SELECT "a" * 1.0 / 2 * 1.0 / 3 AS "q" FROM "t")"},
        // Two signs never make a comment.
        {"SELECT 1--1 AS x FROM t", R"(SELECT 1 - - 1 AS "x" FROM "t")"},
        // `&` binds weaker than arithmetic.
        {"SELECT a & b AS x FROM t", R"(SELECT "a" -> "b" AS "x" FROM "t")"},
        {"SELECT 1 + 2 & a * 3 & b AS x FROM t",
         R"(SELECT ( 1 + 2 ) -> ( ( "a" * 3 ) ) -> "b" AS "x" FROM "t")"},
        {"SELECT a FROM t WHERE a - 1 & 'x' = (b + 1) & -c",
         R"(SELECT "a" FROM "t" WHERE ( "a" - 1 ) -> 'x' COLLATE jet = ( "b" + 1 ) -> ( - "c" ))"},
        // Columns without a name.
        {"SELECT Count(*), a, Max(b) m, a + 1 FROM t",
         R"(SELECT "count" ( * ) AS "Expr1000" , "a" , "max" ( "b" ) "m" AS "Expr1002" , "a" + 1 )"
         R"(AS "Expr1003" FROM "t")"},
        {"SELECT Max(b) AS m FROM t", R"(SELECT "max" ( "b" ) AS "m" FROM "t")"},
        // TOP counts the rows of its own SELECT.
        {"SELECT TOP 3 a FROM t ORDER BY a", R"(SELECT "a" FROM "t" ORDER BY "a" LIMIT 3)"},
        {"SELECT a FROM (SELECT DISTINCT TOP 2 a FROM t) AS s",
         R"(SELECT "a" FROM ( SELECT DISTINCT "a" FROM "t" LIMIT 2 ) AS "s")"},
        // LEFT is a join or a function.
        {"SELECT Left(a, 2) AS x FROM t LEFT JOIN s ON t.a = s.a",
         R"(SELECT "left" ( "a" , 2 ) AS "x" FROM "t" LEFT JOIN "s" ON "t" . "a" = "s" . "a")"},
        // Many equalities become one list, but only where nothing else is in the bracket.
        {"SELECT a FROM t WHERE ((v = '1') OR (v = '2') OR (v = '3') OR (v = '4'))",
         R"(SELECT "a" FROM "t" WHERE ( "v" IN ( '1' , '2' , '3' , '4' ) ))"},
        {"SELECT a FROM t WHERE ((v = '1') OR (v = '2') OR (v = '3') OR (v = '4') AND b)",
         R"(SELECT "a" FROM "t" WHERE ( ( "v" = '1' ) OR ( "v" = '2' ) OR ( "v" = '3' ) OR )"
         R"(( "v" = '4' ) AND "b" ))"},
        {"SELECT a FROM t WHERE ((v = '1') OR (v = '2') OR (v = '3') OR (w = '4'))",
         R"(SELECT "a" FROM "t" WHERE ( ( "v" = '1' ) OR ( "v" = '2' ) OR ( "v" = '3' ) OR )"
         R"(( "w" = '4' ) ))"},
    };
    for (const Case& c : cases) EXPECT_EQ(translated(c.statement), c.expected) << c.statement;
}

TEST(Dialect, NamesTheColumnOfAnExtreme) {
    const std::string statement =
        "SELECT Max(Data), Min([a b]) AS x, Max(a + 1), a, Count(b) FROM t";
    const std::vector<std::string> expected = {"Data", "a b", "", "", ""};
    EXPECT_EQ(translate(tokenize(statement), statement).extremeOf, expected);
}

TEST(Dialect, FindsPlacesInTheStatement) {
    const std::string statement = "SELECT TOP 2 [a] & 1+1 FROM t WHERE #2006-03-14# = wrong";
    const Translation translation = translate(tokenize(statement), statement);
    const auto place = [&](const char* text) {
        return translation.sourcePlace(translation.sql.find(text));
    };
    EXPECT_EQ(place("\"a\""), statement.find("[a]"));
    EXPECT_EQ(place("->"), statement.find('&'));
    EXPECT_EQ(place("FROM"), statement.find("FROM"));
    EXPECT_EQ(place("(38790)"), statement.find('#'));
    EXPECT_EQ(place("\"wrong\""), statement.find("wrong"));
    EXPECT_EQ(place("LIMIT"), statement.size());
}

TEST(Dialect, RefusesWithTheRightNumberAndPlace) {
    struct Refused {
        std::string statement;
        int number;
        const char* part;  ///< of the description
    };
    const Refused cases[] = {
        {"", 3075, "istruzione vuota"},
        {"  ;", 3075, "istruzione vuota"},
        {"DELETE FROM Allarmi", 3065, "DELETE"},
        {"insert into t values (1)", 3065, "insert"},
        {"ATTACH 'x' AS y", 3065, "ATTACH"},
        {"PRAGMA table_info(t)", 3065, "PRAGMA"},
        {"WITH x AS (SELECT 1) SELECT * FROM x", 3065, "WITH"},
        {"EXPLAIN SELECT 1", 3065, "EXPLAIN"},
        {"SELECT a FROM t WHERE b = 'x", 3075, "stringa non chiusa"},
        {"SELECT a FROM t WHERE b = \"x'", 3075, "stringa non chiusa"},
        {"SELECT a FROM t WHERE b > #2006-03-14", 3075, "data non chiusa"},
        {"SELECT a FROM t WHERE b > #14/03/2006#", 3075, "data non valida"},
        {"SELECT [a FROM t", 3075, "nome non chiuso"},
        {"SELECT [] FROM t", 3075, "nome vuoto"},
        {"SELECT 12ab FROM t", 3075, "numero non valido"},
        {"SELECT 1.2.3 FROM t", 3075, "numero non valido"},
        {"SELECT 1e FROM t", 3075, "numero non valido"},
        {"SELECT a FROM t WHERE b = ?", 3075, "carattere non ammesso"},
        {"SELECT a FROM t WHERE b = @x", 3075, "carattere non ammesso"},
        {"SELECT a FROM t; SELECT b FROM t", 3075, "una sola istruzione"},
        {"SELECT (a FROM t", 3075, "parentesi non chiusa"},
        {"SELECT a) FROM t", 3075, "parentesi chiusa in più"},
        {"SELECT TOP a FROM t", 3075, "TOP senza numero"},
        {"SELECT TOP 1.5 a FROM t", 3075, "TOP senza numero"},
        {"SELECT TOP 1 a FROM t UNION SELECT a FROM t", 3075, "UNION"},
        {"SELECT a FROM t UNION SELECT TOP 1 a FROM t", 3075, "UNION"},
        {std::string("SELECT 'a\0b' FROM t", 19), 3075, "stringa non chiusa"},
        {std::string("SELECT a\0 FROM t", 16), 3075, "carattere non ammesso"},
    };
    for (const Refused& c : cases) {
        try {
            ADD_FAILURE() << c.statement << " -> " << translated(c.statement);
        } catch (const RuntimeError& error) {
            EXPECT_EQ(error.Number(), c.number) << c.statement;
            EXPECT_NE(error.Description().find(c.part), std::string::npos)
                << c.statement << ": " << error.Description();
        }
    }
}

TEST(Dialect, DistinctQueriesAreRecognised) {
    const auto recognised = [](const char* statement) -> std::string {
        const auto query = recogniseDistinct(tokenize(statement));
        return query ? query->table + "." + query->column + (query->descending ? " down" : " up")
                     : "-";
    };
    const Case cases[] = {
        {"SELECT VRX From Allarmi GROUP BY VRX ORDER BY VRX", "Allarmi.VRX up"},
        {"SELECT [a b] FROM [c d] GROUP BY [a b];", "c d.a b up"},
        {"SELECT DISTINCT VRX FROM Allarmi ORDER BY VRX DESC", "Allarmi.VRX down"},
        {"SELECT DISTINCT VRX FROM Allarmi GROUP BY VRX ORDER BY VRX ASC", "Allarmi.VRX up"},
        {"SELECT VRX FROM Allarmi", "-"},
        {"SELECT VRX FROM Allarmi ORDER BY VRX", "-"},
        {"SELECT VRX FROM Allarmi GROUP BY Allarme", "-"},
        {"SELECT VRX, Data FROM Allarmi GROUP BY VRX, Data", "-"},
        {"SELECT VRX FROM Allarmi WHERE VRX > 'a' GROUP BY VRX", "-"},
        {"SELECT VRX FROM Allarmi GROUP BY VRX HAVING Count(*) > 1", "-"},
        {"SELECT VRX FROM Allarmi GROUP BY VRX ORDER BY Data", "-"},
        {"SELECT DISTINCT VRX FROM Allarmi, Altri", "-"},
        {"SELECT DISTINCT VRX FROM Allarmi UNION SELECT VRX FROM Altri", "-"},
        {"SELECT DISTINCT VRX AS Nome FROM Allarmi", "-"},
        {"SELECT DISTINCT", "-"},
    };
    for (const Case& c : cases) EXPECT_EQ(recognised(c.statement), c.expected) << c.statement;
}

}  // namespace
}  // namespace velt::access
