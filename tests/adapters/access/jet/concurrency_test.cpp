// SPDX-License-Identifier: MIT
// One process writes, another reads all the time.
#include "tests/adapters/access/jet/everytype.h"

#include "adapters/access/jet/cursor.h"
#include "tests/adapters/access/jet/patchedfile.h"

#include <random>
#include <sys/wait.h>
#include <unistd.h>

namespace velt::jet::test {
namespace {

constexpr std::int32_t Rows = 60'000;

std::string memoOf(std::int64_t row) {
    return std::string(static_cast<std::size_t>(row % 97 == 0 ? 6000 : row % 70),
                       static_cast<char>('a' + row % 26));
}

/// Appends the rows, flushed now after one and now after many, with new tables in between.
void writeAll(const std::filesystem::path& file) {
    std::mt19937 random(1);
    Writer writer = Writer::open(file);
    for (std::int32_t i = 0; i < Rows; ++i) {
        writer.append("T", Row{i, memoOf(i), "RTU0" + std::to_string(i % 8)});
        if (random() % 50 == 0 || i % 20'000 < 500) writer.flush();
        if (i % 5'000 == 0)
            writer.createTable("T" + std::to_string(i),
                               std::vector<ColumnDefinition>{{"N", ColumnType::Long}});
    }
    writer.flush();
}

/// Reads the whole table once; returns its rows, or -1 when one is not as it was written.
std::int64_t readAll(const std::filesystem::path& file) {
    const auto database = Database::open(file);
    for (const std::string& name : database->tableNames()) static_cast<void>(database->table(name));
    Cursor rows(database->table("T"));
    std::int64_t count = 0;
    for (; rows.next(); ++count)
        if (rows.integer(0) != count || rows.text(1) != memoOf(count)) return -1;
    return rows.unreadableRows() == 0 ? count : -1;
}

using Concurrency = FileTest;

TEST_F(Concurrency, AReaderNeverSeesABrokenFile) {
    {
        Writer writer = Writer::create(file_);
        writeTable(
            writer, "T",
            {{"N", ColumnType::Long}, {"M", ColumnType::Memo}, {"VRX", ColumnType::Text, 20}}, {});
    }
    const pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        const RuntimeError error = raisedBy([this] { writeAll(file_); });
        ::_exit(error.Number() == 0 ? 0 : 1);
    }
    int status = 0, passes = 0;
    std::int64_t seen = 0;
    for (bool running = true; running; ++passes) {
        running = ::waitpid(child, &status, WNOHANG) == 0;
        const std::int64_t rows = readAll(file_);
        EXPECT_GE(rows, seen);
        seen = rows;
    }
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
    EXPECT_EQ(seen, Rows);
    EXPECT_GT(passes, 1);
}

}  // namespace
}  // namespace velt::jet::test
