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

}  // namespace
}  // namespace velt::jet::test
