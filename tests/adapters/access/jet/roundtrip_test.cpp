// SPDX-License-Identifier: MIT
// What the writer writes is what the reader reads, and what mdb-export reads.
#include "adapters/access/jet/tabledefinition.h"
#include "adapters/access/jet/usagemap.h"
#include "tests/adapters/access/jet/canonical.h"
#include "tests/adapters/access/jet/everytype.h"
#include "tests/tempfolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <cstdlib>

namespace velt::jet::test {
namespace {

class RoundTrip : public testing::TestWithParam<Version> {
protected:
    [[nodiscard]] std::filesystem::path file() const { return folder_ / "Prova.mdb"; }

    TempFolder folder_;
};

INSTANTIATE_TEST_SUITE_P(Versions, RoundTrip, testing::Values(Version::Jet3, Version::Jet4),
                         [](const auto& version) {
                             return version.param == Version::Jet3 ? "Jet3" : "Jet4";
                         });

void expectRows(const Table& table, const std::vector<ColumnDefinition>& columns,
                const std::vector<Row>& rows) {
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

TEST_P(RoundTrip, KeepsEveryValueOfEveryType) {
    writeEveryType(file(), GetParam());
    const auto database = Database::open(file());
    EXPECT_EQ(database->version(), GetParam());
    EXPECT_THAT(database->tableNames(), testing::ElementsAre("T", "Vuota"));
    const Table table = database->table("t");
    EXPECT_EQ(table.columnIndex("LOCALITÀ"), 11);
    EXPECT_EQ(table.statedRows(), everyTypeRows().size());
    expectRows(table, everyType(), everyTypeRows());
    expectRows(database->table("Vuota"), everyType(), {});
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
    Writer writer = Writer::create(file(), GetParam());
    writeTable(writer, "T", columns, rows);
    expectRows(Database::open(file())->table("T"), columns, rows);
}

TEST_P(RoundTrip, GoesOnWithAnExistingFile) {
    const std::vector<ColumnDefinition> columns{{"N", ColumnType::Long}, {"M", ColumnType::Memo}};
    std::vector<Row> rows;
    { static_cast<void>(Writer::create(file(), GetParam())); }
    for (int session = 0; session < 60; ++session) {
        Writer writer = Writer::open(file());
        if (session == 0) writer.createTable("T", columns);
        for (int i = 0; i <= session % 7; ++i) {
            rows.push_back({static_cast<std::int32_t>(rows.size()),
                            std::string(rows.size() * 5, static_cast<char>('a' + session % 26))});
            writer.append(i % 2 == 0 ? "T" : "t", rows.back());
        }
        if (session == 30) writer.createTable("Altra", columns);
    }
    const auto database = Database::open(file());
    expectRows(database->table("T"), columns, rows);
    expectRows(database->table("altra"), columns, {});
    // Sessions fill up one another's pages.
    EXPECT_LT(std::filesystem::file_size(file()), 400'000U);
}

TEST_P(RoundTrip, TakesDefinitionsLongerThanAPage) {
    std::vector<ColumnDefinition> columns;
    Row row;
    for (int i = 0; i < 255; ++i) {
        columns.push_back({"Colonna con un nome molto lungo " + std::to_string(i),
                           i % 2 == 0 ? ColumnType::Byte : ColumnType::Text, 10});
        row.emplace_back(i % 2 == 0 ? Variant(static_cast<std::uint8_t>(i))
                                    : Variant(std::to_string(i)));
    }
    Writer writer = Writer::create(file(), GetParam());
    writeTable(writer, "T", columns, {row});
    expectRows(Database::open(file())->table("T"), columns, {row});
}

// The map of a table's pages needs its second map page, that of the memos no longer fits inline.
TEST_P(RoundTrip, GrowsItsMaps) {
    const std::vector<ColumnDefinition> columns{{"N", ColumnType::Long}, {"M", ColumnType::Memo}};
    const bool jet3 = GetParam() == Version::Jet3;
    const int rows = jet3 ? 17'000 : 3'000;
    const std::string memo(jet3 ? 1500 : 3500, 'm');  // one to a page
    {
        Writer writer = Writer::create(file(), GetParam());
        writer.createTable("T", columns);
        if (jet3) {
            const std::vector<ColumnDefinition> wide(8, {"", ColumnType::Text, 250});
            std::vector<ColumnDefinition> named = wide;
            for (std::size_t i = 0; i < named.size(); ++i) named[i].name = std::to_string(i);
            writer.createTable("Larga", named);
            const Row row(7, std::string(200, 'w'));
            for (int i = 0; i < rows; ++i) {
                Row numbered = row;
                numbered.insert(numbered.begin(), std::to_string(i));
                writer.append("Larga", numbered);
            }
        }
        for (int i = 0; i < 3'000; ++i) writer.append("T", Row{std::int32_t{i}, memo});
    }
    const auto database = Database::open(file());
    int count = 0;
    const Table table = database->table("T");
    for (Cursor cursor(table); cursor.next(); ++count) {
        ASSERT_EQ(cursor.integer(0), count);
        ASSERT_EQ(cursor.text(1), memo);
    }
    EXPECT_EQ(count, 3'000);
    if (!jet3) return;
    count = 0;
    for (Cursor cursor(database->table("Larga")); cursor.next(); ++count)
        ASSERT_EQ(cursor.text(0), std::to_string(count));
    EXPECT_EQ(count, rows);
}

std::string outputOf(const std::string& command) {
    std::string output;
    FILE* pipe = ::popen(command.c_str(), "r");
    if (pipe == nullptr) return "popen failed";
    std::array<char, 4096> part{};
    while (const std::size_t size = std::fread(part.data(), 1, part.size(), pipe))
        output.append(part.data(), size);
    ::pclose(pipe);
    return output;
}

TEST_P(RoundTrip, IsReadAlikeByMdbExport) {
    if (std::system("mdb-export --version >/dev/null 2>&1") != 0)
        GTEST_SKIP() << "mdbtools is not installed";
    const std::vector<ColumnDefinition> columns{
        {"Data", ColumnType::Date},     {"Testo", ColumnType::Text, 255},
        {"Città", ColumnType::Text, 5}, {"Nota", ColumnType::Memo},
        {"Lungo", ColumnType::Long},    {"Intero", ColumnType::Integer},
        {"Byte", ColumnType::Byte},     {"Vero", ColumnType::Boolean},
        {"Doppia", ColumnType::Double}};
    std::vector<Row> rows;
    std::string expected;
    for (int i = 0; i < 700; ++i) {
        const std::string text = "città " + std::string(static_cast<std::size_t>(i) % 249, 'x');
        const std::string memo(static_cast<std::size_t>(i) * 17 % 9000 + 1, 'm');
        rows.push_back({Date(38718.0 + i), text, i % 3 == 0 ? Variant("però") : Variant(Null{}),
                        memo, std::int32_t{i * 1000}, static_cast<std::int16_t>(-i),
                        static_cast<std::uint8_t>(i % 256), i % 2 == 0, i + 0.5});
        char head[32];
        const Date::Fields day = Date(38718.0 + i).fields();
        std::snprintf(head, sizeof head, "%04d-%02d-%02d 00:00:00|", day.year, day.month, day.day);
        expected += head + text + '|' + (i % 3 == 0 ? "però" : "<null>") + '|' + memo + '|' +
                    std::to_string(i * 1000) + '|' + std::to_string(-i) + '|' +
                    std::to_string(i % 256) + '|' + (i % 2 == 0 ? '1' : '0') + '|' +
                    std::to_string(i) + ".5\n";
    }
    Writer writer = Writer::create(file(), GetParam());
    writeTable(writer, "Prima tabella", columns, rows);
    writeTable(writer, "Seconda", columns, {});

    const std::string path = "'" + file().string() + "'";
    EXPECT_EQ(outputOf("mdb-tables -1 " + path), "Prima tabella\nSeconda\n");
    EXPECT_EQ(outputOf("mdb-export -H -Q -d '|' -0 '<null>' -T '%Y-%m-%d %H:%M:%S' " + path +
                       " 'Prima tabella'"),
              expected);
    EXPECT_EQ(outputOf("mdb-export " + path + " Seconda"),
              "Data,Testo,Città,Nota,Lungo,Intero,Byte,Vero,Doppia\n");
}

}  // namespace
}  // namespace velt::jet::test
