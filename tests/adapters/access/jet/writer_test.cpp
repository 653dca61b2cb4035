// SPDX-License-Identifier: MIT
#include "adapters/access/jet/writer.h"

#include "adapters/access/jet/newcolumns.h"
#include "adapters/access/jet/systemtables.h"
#include "adapters/access/jet/tablemaker.h"
#include "tests/adapters/access/jet/canonical.h"
#include "tests/adapters/access/jet/everytype.h"
#include "tests/adapters/access/jet/patchedfile.h"
#include "tests/errorof.h"
#include "tests/tempfolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>
#include <functional>
#include <sys/resource.h>

namespace velt::jet::test {
namespace {

class WriterTest : public testing::Test {
protected:
    [[nodiscard]] std::filesystem::path file() const { return folder_ / "Prova.mdb"; }

    TempFolder folder_;
};

void expectError(ErrorNumber number, const std::function<void()>& action,
                 const std::string& part = "") {
    const RuntimeError error = raisedBy(action);
    EXPECT_TRUE(error.is(number)) << error.Number() << ": " << error.Description();
    EXPECT_THAT(error.Description(), testing::HasSubstr(part));
}

std::uint64_t rowsOf(const std::filesystem::path& file, const std::string& table) {
    return digest(Database::open(file)->table(table)).rows;
}

TEST_F(WriterTest, ChecksValuesAgainstColumns) {
    const auto columns = everyType();
    const struct {
        const char* column;
        Variant value;
        ErrorNumber number;
    } cases[] = {
        {"Bool", std::int32_t{1}, ErrorNumber::TypeMismatch},
        {"Byte", std::int32_t{256}, ErrorNumber::Overflow},
        {"Byte", std::int32_t{-1}, ErrorNumber::Overflow},
        {"Lungo", 2147483648.0, ErrorNumber::Overflow},
        {"Lungo", 1.5, ErrorNumber::TypeMismatch},
        {"Valuta", 922337203685478.0, ErrorNumber::Overflow},
        {"Data", 38000.0, ErrorNumber::TypeMismatch},
        {"Doppia", Date(1.0), ErrorNumber::TypeMismatch},
        {"Testo", std::string(101, 'x'), ErrorNumber::Overflow},
        {"Binario", std::vector<std::uint8_t>(511), ErrorNumber::Overflow},
        {"Codice", std::vector<std::uint8_t>(15), ErrorNumber::Overflow},
        {"Decimale", std::string("1.23456"), ErrorNumber::Overflow},
        {"Decimale", std::string("12,5"), ErrorNumber::Overflow},
    };
    Writer writer = Writer::create(file());
    writer.createTable("T", columns);
    for (const auto& c : cases) {
        Row row = everyTypeRows().front();
        for (std::size_t i = 0; i < columns.size(); ++i)
            if (columns[i].name == c.column) row[i] = c.value;
        expectError(
            c.number, [&] { writer.append("T", row); }, c.column);
    }
    expectError(ErrorNumber::InvalidCall, [&] { writer.append("T", Row(3)); });
    expectError(ErrorNumber::UnknownTable, [&] { writer.append("Manca", Row(3)); });
    writer.flush();
    EXPECT_EQ(rowsOf(file(), "T"), 0U);
}

TEST_F(WriterTest, RefusesRowsLongerThanAPage) {
    std::vector<ColumnDefinition> columns;
    for (int i = 0; i < 20; ++i)
        columns.push_back({"C" + std::to_string(i), ColumnType::Text, 255});
    Writer writer = Writer::create(file());
    writer.createTable("T", columns);
    expectError(ErrorNumber::Overflow, [&] { writer.append("T", Row(20, std::string(255, 'x'))); });
    writer.append("T", Row(20, std::string(190, 'x')));
    writer.flush();
    EXPECT_EQ(rowsOf(file(), "T"), 1U);
}

TEST_F(WriterTest, RefusesTablesThatTheFormatDoesNotAllow) {
    using Columns = std::vector<ColumnDefinition>;
    const Columns good{{"N", ColumnType::Long}};
    const struct {
        std::string name;
        Columns columns;
    } cases[] = {
        {"", good},
        {std::string(65, 'x'), good},
        {"Città", good},  // its place in the catalogue's index is not known
        {"esiste", good},
        {"T", {}},
        {"T", Columns(256, {"N", ColumnType::Long})},
        {"T", {{"", ColumnType::Long}}},
        {"T", {{"A", ColumnType::Long}, {"a", ColumnType::Long}}},
        {"T", {{"A", ColumnType::Text, 256}}},
        {"T", {{"A", ColumnType::BigInt}}},
        {"T", {{"A", ColumnType::Numeric, 0, 29, 0}}},
        {"T", {{"A", ColumnType::Numeric, 0, 4, 5}}},
    };
    Writer writer = Writer::create(file());
    writer.createTable("Esiste", good);
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        expectError(ErrorNumber::InvalidCall, [&] { writer.createTable(c.name, c.columns); });
    }
    EXPECT_THAT(Database::open(file())->tableNames(), testing::ElementsAre("Esiste"));
    expectError(ErrorNumber::InvalidCall, [&] {
        static_cast<void>(Writer::create(folder_ / "2007.accdb", Version::Ace2007));
    });
}

TEST_F(WriterTest, CreatesNoFileOverAnother) {
    velt::test::writeBytes(file(), "altro");
    expectError(ErrorNumber::PathAccess, [this] { static_cast<void>(Writer::create(file())); });
    EXPECT_EQ(velt::test::bytesOf(file()), "altro");
}

TEST_F(WriterTest, KeepsOtherWritersOut) {
    {
        const Writer first = Writer::create(file());
        expectError(ErrorNumber::FileLocked, [this] { static_cast<void>(Writer::open(file())); });
        EXPECT_TRUE(Database::open(file())->tableNames().empty());
    }
    static_cast<void>(Writer::open(file()));
}

TEST_F(WriterTest, RefusesTablesWithAnIndex) {
    { static_cast<void>(Writer::create(file())); }
    {
        PageFile pages(PageReader::open(file(), PageReader::Mode::ReadWrite));
        PageAllocator allocator(pages);
        const std::vector<ColumnDefinition> columns{{"Chiave", ColumnType::Long},
                                                    {"Nota", ColumnType::Memo}};
        const std::uint32_t page = allocator.takePage();
        makeTable(allocator, page, false, layOutColumns(columns, pages.layout()),
                  {NewIndex{"PrimaryKey", {0}, 0x81, 0, {}}});
        CatalogWriter(allocator).addTable("Indicizzata", page);
    }
    Writer writer = Writer::open(file());
    const Row row{std::int32_t{1}, Null{}};
    expectError(
        ErrorNumber::InvalidCall, [&] { writer.append("Indicizzata", row); }, "indice");
    EXPECT_EQ(Database::open(file())->table("Indicizzata").columns().size(), 2U);
}

TEST_F(WriterTest, CataloguesManyTablesUntilItsIndexIsFull) {
    const std::vector<ColumnDefinition> columns{{"N", ColumnType::Long}};
    Writer writer = Writer::create(file());
    std::vector<std::string> names;
    expectError(
        ErrorNumber::InvalidCall,
        [&] {
            for (std::int32_t i = 0; i < 1000; ++i) {
                const std::string name = "Tabella " + std::to_string(i);
                writer.createTable(name, columns);
                names.push_back(name);
                writer.append(name, Row{i});
            }
        },
        "troppe tabelle");
    writer.flush();
    EXPECT_GT(names.size(), 80U);
    const auto database = Database::open(file());
    EXPECT_EQ(database->tableNames(), names);
    EXPECT_EQ(digest(database->table(names.back())).rows, 1U);
}

/// Lets no file of this process grow beyond `size`, as a full disk does.
class FullDisk {
public:
    explicit FullDisk(std::uintmax_t size) {
        ::getrlimit(RLIMIT_FSIZE, &before_);
        rlimit limit = before_;
        limit.rlim_cur = size;
        ::setrlimit(RLIMIT_FSIZE, &limit);
        handler_ = std::signal(SIGXFSZ, SIG_IGN);
    }
    ~FullDisk() {
        ::setrlimit(RLIMIT_FSIZE, &before_);
        static_cast<void>(std::signal(SIGXFSZ, handler_));
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

private:
    rlimit before_{};
    void (*handler_)(int) = nullptr;
};

TEST_F(WriterTest, FullDiskLeavesWhatWasThereAndGoesOnLater) {
    const std::vector<ColumnDefinition> columns{{"N", ColumnType::Long}, {"M", ColumnType::Memo}};
    const std::string memo(500, 'm');
    Writer writer = Writer::create(file());
    writer.createTable("T", columns);
    std::int32_t rows = 0;
    {
        const FullDisk disk(500'000);
        expectError(
            ErrorNumber::PathAccess,
            [&] {
                for (; rows < 10'000; ++rows) writer.append("T", Row{rows, memo});
            },
            file().string());
        expectError(ErrorNumber::PathAccess, [&] { writer.flush(); });
        EXPECT_GT(rows, 500);
        const std::uint64_t readable = rowsOf(file(), "T");
        EXPECT_GT(readable, 300U);
        EXPECT_LE(readable, static_cast<std::uint64_t>(rows));
    }
    for (; rows < 2'000; ++rows) writer.append("T", Row{rows, memo});
    writer.flush();
    Cursor cursor(Database::open(file())->table("T"));
    for (std::int32_t i = 0; i < rows; ++i) {
        ASSERT_TRUE(cursor.next());
        ASSERT_EQ(cursor.integer(0), i);
        ASSERT_EQ(cursor.text(1), memo);
    }
    EXPECT_FALSE(cursor.next());
    EXPECT_EQ(cursor.unreadableRows(), 0U);
}

TEST_F(WriterTest, RemovesAFileThatCouldNotBeCreated) {
    const FullDisk disk(20'000);
    expectError(ErrorNumber::PathAccess, [this] { static_cast<void>(Writer::create(file())); });
    EXPECT_FALSE(std::filesystem::exists(file()));
}

}  // namespace
}  // namespace velt::jet::test
