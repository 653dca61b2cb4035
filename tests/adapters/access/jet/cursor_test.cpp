// SPDX-License-Identifier: MIT
// Rows as other programs leave them: deleted, moved, older than a column, broken.
#include "adapters/access/jet/cursor.h"

#include "adapters/access/jet/writer.h"
#include "tests/adapters/access/jet/canonical.h"
#include "tests/adapters/access/jet/everytype.h"
#include "tests/adapters/access/jet/patchedfile.h"
#include "tests/errorof.h"
#include "tests/tempfolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>

namespace velt::jet::test {
namespace {

using testing::ElementsAre;

constexpr std::size_t RowsPerPage = 200;

class CursorTest : public testing::Test {
protected:
    /// Rows 0, 1, 2, ... of a number and a text, RowsPerPage to a page.
    void write(int rows) {
        const std::vector<ColumnDefinition> columns{{"N", ColumnType::Long},
                                                    {"T", ColumnType::Text, 20}};
        std::vector<Row> values;
        for (int i = 0; i < rows; ++i) values.push_back({std::int32_t{i}, std::string("x")});
        Writer writer = Writer::create(path_);
        writeTable(writer, "T", columns, values);
    }
    [[nodiscard]] Table table() const { return Database::open(path_)->table("T"); }
    [[nodiscard]] std::vector<int> numbers(std::uint64_t unreadable = 0) const {
        std::vector<int> found;
        Cursor rows(table());
        while (rows.next()) found.push_back(static_cast<int>(rows.integer(0)));
        EXPECT_EQ(rows.unreadableRows(), unreadable);
        return found;
    }
    /// The page of row `n`.
    [[nodiscard]] RowId place(int n) const {
        Cursor rows(table());
        for (int i = 0; i <= n; ++i) EXPECT_TRUE(rows.next());
        return rows.rowId();
    }
    void patch(const std::function<void(PatchedFile&)>& change) const {
        PatchedFile file(path_);
        change(file);
        file.save();
    }

    TempFolder folder_;
    std::filesystem::path path_ = folder_ / "Prova.mdb";
};

TEST_F(CursorTest, FollowsMovedRowsAndLeavesDeletedOnesOut) {
    write(600);
    const std::size_t first = place(0).page;
    const RowId last = place(599);
    patch([&](PatchedFile& file) {
        file.markDeleted(first, 0);
        file.markMoved(first, 2, last.page, last.row);
        file.markDeleted(last.page, last.row);  // as the place it moved to is marked
        file.markMoved(first, 4, last.page, last.row);
        file.markDeleted(first, 4);  // deleted after it had moved
    });
    const auto found = numbers();
    ASSERT_EQ(found.size(), 597U);
    EXPECT_THAT(std::vector<int>(found.begin(), found.begin() + 4), ElementsAre(1, 599, 3, 5));
}

TEST_F(CursorTest, CountsMovedRowsThatLeadNowhere) {
    write(6);
    const std::size_t page = place(0).page;
    patch([page](PatchedFile& file) {
        const std::string catalogued("M\0S\0y\0s\0", 8);
        const std::size_t catalogue = file.bytes().find(catalogued) / PatchedFile::PageSize;
        file.markMoved(page, 0, page, 0);       // to itself
        file.markMoved(page, 1, page, 200);     // no such row
        file.markMoved(page, 2, 0xFFFFFF, 0);   // no such page
        file.markMoved(page, 3, 2, 0);          // no data page
        file.markMoved(page, 4, catalogue, 0);  // a row of another table
    });
    EXPECT_THAT(numbers(5), ElementsAre(5));
}

TEST_F(CursorTest, SkipsPagesThatWereGivenBack) {
    write(600);
    const std::size_t first = place(0).page;
    const std::size_t second = place(static_cast<int>(RowsPerPage) + 100).page;
    ASSERT_NE(first, second);
    patch([&](PatchedFile& file) {
        file.put8(first * PatchedFile::PageSize, 9);
        file.put8(second * PatchedFile::PageSize + 4, 200);
    });
    EXPECT_LT(numbers().size(), 300U);
}

TEST_F(CursorTest, CountsRowsThatContradictThemselves) {
    write(8);
    const std::size_t page = place(0).page;
    patch([page](PatchedFile& file) {
        // A row: count, number, text "x", end 8, start 6, 1 variable value, null mask.
        const auto row = [&](std::size_t n) { return file.rowPlace(page, n); };
        file.put16(row(0), 5000);                         // more columns than bytes
        file.put16(row(1) + 12, 300);                     // more values than bytes
        file.put16(row(2) + 10, 5000);                    // a value begins behind the row
        file.put16(row(3) + 8, 2);                        // and ends before it begins
        file.put16(row(4) + 10, 3);                       // it begins within the number
        file.put16(PatchedFile::rowWord(page, 6), 4095);  // rows overlap
    });
    EXPECT_THAT(numbers(7), ElementsAre(5));  // row 7 ends where row 6 begins
}

TEST_F(CursorTest, ReadsColumnsAddedLaterAsNull) {
    write(3);
    const std::size_t page = place(0).page;
    patch([page](PatchedFile& file) {
        file.put16(file.rowPlace(page, 1), 1);  // written when there was one column
    });
    const Table t = table();
    Cursor rows(t);
    ASSERT_TRUE(rows.next());
    EXPECT_EQ(canonicalCell(rows, t, 1), "Tx");
    ASSERT_TRUE(rows.next());
    EXPECT_EQ(canonicalCell(rows, t, 0), "I1");
    EXPECT_EQ(canonicalCell(rows, t, 1), "N");
}

TEST_F(CursorTest, ReportsDamagedLongValues) {
    const std::vector<ColumnDefinition> columns{{"M", ColumnType::Memo}};
    const std::string memo(10'000, 'm');
    {
        Writer writer = Writer::create(path_);
        writeTable(writer, "T", columns, {{memo}, {std::string("corto")}, {memo}, {memo}, {memo}});
    }
    const std::size_t page = place(0).page;
    patch([page](PatchedFile& file) {
        // A row: count, then length with kind, row, page of the first part.
        const auto head = [&](std::size_t n) { return file.rowPlace(page, n) + 2; };
        file.put8(head(0) + 4, 99);  // no such row
        file.put16(head(1), 500);    // longer than the row
        file.put16(head(2) + 5, 0);  // no such page
        const std::size_t part = file.u16(head(3) + 5);
        const std::size_t at = file.rowPlace(part, file.u8(head(3) + 4));
        file.put8(at, file.u8(head(3) + 4));  // the part names itself as the next
        file.put16(at + 1, static_cast<unsigned>(part));
        file.put16(head(3), 0xFFFF);
        file.put16(head(3) + 2, 0x3FFF);
    });
    Cursor rows(table());
    for (int i = 0; i < 4; ++i) {
        ASSERT_TRUE(rows.next());
        const RuntimeError error = raisedBy([&] { static_cast<void>(rows.text(0)); });
        EXPECT_TRUE(error.is(ErrorNumber::UnknownFileFormat)) << "row " << i;
        EXPECT_THAT(error.Description(), testing::HasSubstr("\"M\""));
    }
    ASSERT_TRUE(rows.next());
    EXPECT_EQ(rows.text(0), memo);
}

}  // namespace
}  // namespace velt::jet::test
