// SPDX-License-Identifier: MIT
// Rows as other programs leave them: deleted, moved, older than a column, broken.
#include "adapters/access/jet/cursor.h"

#include "tests/adapters/access/jet/canonical.h"
#include "tests/adapters/access/jet/everytype.h"
#include "tests/adapters/access/jet/patchedfile.h"

namespace velt::jet::test {
namespace {

using testing::ElementsAre;

class CursorTest : public FileTest {
protected:
    /// Rows 0, 1, 2, ... of a number and a text.
    void write(int rows) {
        std::vector<Row> values;
        for (std::int32_t i = 0; i < rows; ++i) values.push_back({i, "x"});
        Writer writer = Writer::create(file_);
        writeTable(writer, "T", {{"N", ColumnType::Long}, {"T", ColumnType::Text, 20}}, values);
    }
    [[nodiscard]] Table table() const { return Database::open(file_)->table("T"); }
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
};

TEST_F(CursorTest, FollowsMovedRowsAndLeavesOutDeletedOnesAndPagesGivenBack) {
    write(1000);
    const std::size_t first = place(0).page;
    const RowId last = place(999);
    const std::size_t freed = place(300).page, ofAnother = place(550).page;
    patch([&](PatchedFile& file) {
        file.markDeleted(first, 0);
        file.markMoved(first, 2, last.page, last.row);
        file.markDeleted(last.page, last.row);  // as the place it moved to is marked
        file.markMoved(first, 4, last.page, last.row);
        file.markDeleted(first, 4);  // deleted after it had moved
        file.put8(freed * PatchedFile::PageSize, 9);
        file.put8(ofAnother * PatchedFile::PageSize + 4, 200);
    });
    const auto found = numbers();
    ASSERT_EQ(found.size(), 517U);  // 240 to a page
    EXPECT_THAT(std::vector<int>(found.begin(), found.begin() + 4), ElementsAre(1, 999, 3, 5));
}

TEST_F(CursorTest, CountsRowsThatLeadNowhereOrContradictThemselves) {
    write(13);
    const std::size_t page = place(0).page;
    patch([page](PatchedFile& file) {
        const std::size_t catalogue = file.pageOf("MSys");
        file.markMoved(page, 0, page, 0);       // to itself
        file.markMoved(page, 1, page, 200);     // no such row
        file.markMoved(page, 2, 0xFFFFFF, 0);   // no such page
        file.markMoved(page, 3, 2, 0);          // no data page
        file.markMoved(page, 4, catalogue, 0);  // a row of another table
        // A row: count, number, text "x", end 8, start 6, 1 variable value, null mask.
        const auto row = [&](std::size_t n) { return file.rowPlace(page, n); };
        file.put16(row(5), 5000);                          // more columns than bytes
        file.put16(row(6) + 12, 300);                      // more values than bytes
        file.put16(row(7) + 10, 5000);                     // a value begins behind the row
        file.put16(row(8) + 8, 2);                         // and ends before it begins
        file.put16(row(9) + 10, 3);                        // it begins within the number
        file.put16(PatchedFile::rowWord(page, 11), 4095);  // rows overlap
    });
    EXPECT_THAT(numbers(12), ElementsAre(10));  // row 12 ends where row 11 begins
}

TEST_F(CursorTest, ReadsColumnsAddedLaterAsNull) {
    write(3);
    const std::size_t page = place(0).page;
    // Written when there was one column.
    patch([page](PatchedFile& file) { file.put16(file.rowPlace(page, 1), 1); });
    const Table t = table();
    Cursor rows(t);
    std::string cells;
    while (rows.next()) cells += canonicalCell(rows, t, 0) + canonicalCell(rows, t, 1) + " ";
    EXPECT_EQ(cells, "I0Tx I1N I2Tx ");
}

TEST_F(CursorTest, ReportsDamagedLongValues) {
    const std::string memo(10'000, 'm');
    {
        Writer writer = Writer::create(file_);
        writeTable(writer, "T", {{"M", ColumnType::Memo}},
                   {{memo}, {"corto"}, {memo}, {memo}, {memo}});
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
        SCOPED_TRACE(i);
        expectError(ErrorNumber::UnknownFileFormat, "\"M\"", [&] { (void)rows.text(0); });
    }
    ASSERT_TRUE(rows.next());
    EXPECT_EQ(rows.text(0), memo);
}

}  // namespace
}  // namespace velt::jet::test
