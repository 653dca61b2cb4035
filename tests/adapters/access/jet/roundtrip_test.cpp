// SPDX-License-Identifier: MIT
// What the writer writes is what the reader reads, and what mdb-export reads.
#include "platform/isodate.h"
#include "tests/adapters/access/jet/canonical.h"
#include "tests/adapters/access/jet/everytype.h"
#include "tests/adapters/access/jet/patchedfile.h"
#include "tests/program.h"

namespace velt::jet::test {
namespace {

class RoundTrip : public FileTest, public testing::WithParamInterface<Version> {
protected:
    void expectRows(const std::string& name, const std::vector<ColumnDefinition>& columns,
                    const std::vector<Row>& rows) const {
        const Table table = Database::open(file_)->table(name);
        ASSERT_EQ(table.columns().size(), columns.size());
        Cursor cursor(table);
        for (std::size_t r = 0; r < rows.size(); ++r) {
            ASSERT_TRUE(cursor.next()) << "row " << r;
            for (std::size_t c = 0; c < columns.size(); ++c)
                ASSERT_EQ(canonicalCell(cursor, table, static_cast<int>(c)),
                          canonical(columns[c].type, rows[r][c]))
                    << "row " << r << ", column " << columns[c].name;
        }
        EXPECT_FALSE(cursor.next());
        EXPECT_EQ(cursor.unreadableRows(), 0U);
    }
    void writeAndExpect(Writer& writer, const std::string& name,
                        const std::vector<ColumnDefinition>& columns,
                        const std::vector<Row>& rows) const {
        writeTable(writer, name, columns, rows);
        expectRows(name, columns, rows);
    }
};

INSTANTIATE_TEST_SUITE_P(Versions, RoundTrip, testing::Values(Version::Jet3, Version::Jet4));

TEST_P(RoundTrip, KeepsEveryValueOfEveryType) {
    writeEveryType(file_, GetParam());
    const auto database = Database::open(file_);
    EXPECT_EQ(database->version(), GetParam());
    EXPECT_THAT(database->tableNames(), testing::ElementsAre("T", "Vuota"));
    const Table table = database->table("t");
    EXPECT_EQ(table.columnIndex("LOCALITÀ"), 11);
    EXPECT_EQ(table.statedRows(), everyTypeRows().size());
    expectRows("T", everyType(), everyTypeRows());
    expectRows("Vuota", everyType(), {});
}

// In Jet 3 starts have one byte and a jump table: rows around each multiple of 256 bytes.
TEST_P(RoundTrip, KeepsRowsOfEveryLength) {
    std::vector<ColumnDefinition> columns{{"N", ColumnType::Long}};
    for (int i = 0; i < 7; ++i) columns.push_back({"T" + std::to_string(i), ColumnType::Text, 255});
    std::vector<Row> rows;
    for (int length = 0; length <= 1700; ++length) {
        Row row{std::int32_t{length}};
        for (int left = length, i = 0; i < 7; left -= 250, ++i)
            row.emplace_back(
                left <= 0 ? Variant(Null{})
                          : Variant(std::string(static_cast<std::size_t>(std::min(left, 250)),
                                                static_cast<char>('a' + i))));
        rows.push_back(row);
    }
    Writer writer = Writer::create(file_, GetParam());
    writeAndExpect(writer, "T", columns, rows);

    // More short rows than a row's number can count in a page.
    rows.assign(600, Row{true});
    writeTable(writer, "Corta", {{"V", ColumnType::Boolean}}, rows);
    Cursor cursor(Database::open(file_)->table("Corta"));
    while (cursor.next()) EXPECT_LT(cursor.rowId().row, 255);
}

TEST_P(RoundTrip, TakesDefinitionsLongerThanAPageAndGrowsItsMaps) {
    std::vector<ColumnDefinition> columns;
    Row row;
    for (int i = 0; i < 255; ++i) {
        columns.push_back({"Colonna con un nome molto lungo " + std::to_string(i),
                           i % 2 == 0 ? ColumnType::Byte : ColumnType::Text, 10});
        row.emplace_back(i % 2 == 0 ? Variant(static_cast<std::uint8_t>(i))
                                    : Variant(std::to_string(i)));
    }
    Writer writer = Writer::create(file_, GetParam());
    writeAndExpect(writer, "Molte colonne", columns, {row});

    // The map of a table's pages needs its second map page, that of the memos no longer fits
    // inline.
    const bool jet3 = GetParam() == Version::Jet3;
    columns = {{"N", ColumnType::Long}, {"M", ColumnType::Memo}};
    std::vector<Row> rows;
    const std::string memo(jet3 ? 1500 : 3500, 'm');  // one to a page
    for (std::int32_t i = 0; i < 3'000; ++i) rows.push_back({i, memo});
    writeAndExpect(writer, "T", columns, rows);
    if (!jet3) return;
    std::vector<ColumnDefinition> wide{{"N", ColumnType::Long}};
    for (int i = 0; i < 7; ++i) wide.push_back({std::to_string(i), ColumnType::Text, 250});
    rows.assign(17'000, Row(8, std::string(200, 'w')));
    for (std::size_t i = 0; i < rows.size(); ++i) rows[i][0] = static_cast<std::int32_t>(i);
    writeAndExpect(writer, "Larga", wide, rows);
}

TEST_P(RoundTrip, IsReadAlikeByMdbExport) {
    const auto output = [](const std::string& program, std::vector<std::string> arguments) {
        return velt::test::runProgram(program, std::move(arguments)).output;
    };
    if (output("/usr/bin/mdb-export", {"--version"}).empty())
        GTEST_SKIP() << "mdbtools is not installed";
    const std::vector<ColumnDefinition> columns{
        {"Data", ColumnType::Date},    {"Testo", ColumnType::Text, 255},
        {"Nota", ColumnType::Memo},    {"Lungo", ColumnType::Long},
        {"Vero", ColumnType::Boolean}, {"Doppia", ColumnType::Double},
        {"Città", ColumnType::Text, 5}};
    std::vector<Row> rows;
    std::string expected;
    for (std::int32_t i = 0; i < 700; ++i) {
        const Date date(38718.0 + i);
        const std::string text = "città " + std::string(static_cast<std::size_t>(i) % 249, 'x');
        const std::string memo(static_cast<std::size_t>(i) * 17 % 9000 + 1, 'm');
        const bool third = i % 3 == 0;
        rows.push_back({date, text, memo, i * 1000, third, i + 0.5,
                        third ? Variant("però") : Variant(Null{})});
        expected += isoText(date) + '|' + text + '|' + memo + '|' + std::to_string(i * 1000) + '|' +
                    (third ? '1' : '0') + '|' + std::to_string(i) + ".5|" +
                    (third ? "però" : "<null>") + '\n';
    }
    Writer writer = Writer::create(file_, GetParam());
    writeTable(writer, "Prima tabella", columns, rows);
    writeTable(writer, "Seconda", columns, {});

    const std::string path = file_.string();
    EXPECT_EQ(output("/usr/bin/mdb-export", {"-H", "-Q", "-d", "|", "-0", "<null>", "-T",
                                             "%Y-%m-%d %H:%M:%S", path, "Prima tabella"}),
              expected);
    EXPECT_EQ(output("/usr/bin/mdb-export", {path, "Seconda"}),
              "Data,Testo,Nota,Lungo,Vero,Doppia,Città\n");
}

}  // namespace
}  // namespace velt::jet::test
