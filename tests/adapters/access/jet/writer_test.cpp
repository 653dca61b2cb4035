// SPDX-License-Identifier: MIT
#include "adapters/access/jet/writer.h"

#include "adapters/access/jet/newcolumns.h"
#include "adapters/access/jet/systemtables.h"
#include "adapters/access/jet/tablemaker.h"
#include "tests/adapters/access/jet/canonical.h"
#include "tests/adapters/access/jet/everytype.h"
#include "tests/adapters/access/jet/patchedfile.h"

#include <csignal>
#include <sys/resource.h>

namespace velt::jet::test {
namespace {

using WriterTest = FileTest;

TEST_F(WriterTest, CreatesNoFileOverAnotherAndKeepsOtherWritersOut) {
    velt::test::writeBytes(file_, "altro");
    expectError(
        ErrorNumber::PathAccess, "esiste", [this] { (void)Writer::create(file_); }, file_);
    EXPECT_EQ(velt::test::bytesOf(file_), "altro");
    std::filesystem::remove(file_);
    {
        const Writer first = Writer::create(file_);
        expectError(ErrorNumber::FileLocked, "bloccato", [this] { (void)Writer::open(file_); });
        EXPECT_TRUE(Database::open(file_)->tableNames().empty());
    }
    (void)Writer::open(file_);
}

TEST_F(WriterTest, RefusesTablesWithAnIndex) {
    { static_cast<void>(Writer::create(file_)); }
    {
        PageFile pages(PageReader::open(file_, PageReader::Mode::ReadWrite));
        PageAllocator allocator(pages);
        const std::vector<ColumnDefinition> columns{{"Chiave", ColumnType::Long},
                                                    {"Nota", ColumnType::Memo}};
        const std::uint32_t page = allocator.takePage();
        makeTable(allocator, page, false, layOutColumns(columns, pages.layout()),
                  {NewIndex{"PrimaryKey", {0}, 0x81, 0, {}}});
        CatalogWriter(allocator).addTable("Indicizzata", page);
    }
    Writer writer = Writer::open(file_);
    const Row row{std::int32_t{1}, Null{}};
    expectError(ErrorNumber::InvalidCall, "indice", [&] { writer.append("Indicizzata", row); });
    EXPECT_EQ(Database::open(file_)->table("Indicizzata").columns().size(), 2U);
}

TEST_F(WriterTest, FullDiskLeavesWhatWasThereAndGoesOnLater) {
    const std::vector<ColumnDefinition> columns{{"N", ColumnType::Long}, {"M", ColumnType::Memo}};
    const std::string memo(500, 'm');
    Writer writer = Writer::create(file_);
    writer.createTable("T", columns);
    std::int32_t rows = 0;
    rlimit before{};
    ::getrlimit(RLIMIT_FSIZE, &before);
    const rlimit full{500'000, before.rlim_max};
    static_cast<void>(std::signal(SIGXFSZ, SIG_IGN));
    ::setrlimit(RLIMIT_FSIZE, &full);
    const auto append = [&] {
        for (; rows < 10'000; ++rows) writer.append("T", Row{rows, memo});
    };
    expectError(ErrorNumber::PathAccess, "", append, file_);
    expectError(
        ErrorNumber::PathAccess, "", [&] { writer.flush(); }, file_);
    const std::uint64_t readable = digest(Database::open(file_)->table("T")).rows;
    EXPECT_GT(readable, 300U);
    EXPECT_LE(readable, static_cast<std::uint64_t>(rows));
    ::setrlimit(RLIMIT_FSIZE, &before);
    for (; rows < 2'000; ++rows) writer.append("T", Row{rows, memo});
    writer.flush();
    Cursor cursor(Database::open(file_)->table("T"));
    for (std::int32_t i = 0; i < rows; ++i) {
        ASSERT_TRUE(cursor.next());
        ASSERT_EQ(cursor.integer(0), i);
        ASSERT_EQ(cursor.text(1), memo);
    }
    EXPECT_FALSE(cursor.next());
    EXPECT_EQ(cursor.unreadableRows(), 0U);
}

}  // namespace
}  // namespace velt::jet::test
