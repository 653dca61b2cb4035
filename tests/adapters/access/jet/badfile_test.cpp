// SPDX-License-Identifier: MIT
// Files that are not there, not whole, not Access, or change while they are read.
#include "adapters/access/jet/header.h"
#include "tests/adapters/access/jet/canonical.h"
#include "tests/adapters/access/jet/everytype.h"
#include "tests/adapters/access/jet/patchedfile.h"
#include "tests/errorof.h"
#include "tests/tempfolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <sys/stat.h>

namespace velt::jet::test {
namespace {

using std::filesystem::path;
using testing::AllOf;
using testing::HasSubstr;

class BadFile : public testing::Test {
protected:
    [[nodiscard]] path file() const { return folder_ / "Prova.mdb"; }
    TempFolder folder_;
};

void expectError(ErrorNumber number, const std::string& reason, const path& file,
                 const std::function<void()>& action) {
    const RuntimeError error = raisedBy(action);
    EXPECT_TRUE(error.is(number)) << error.Number() << " instead of " << reason;
    EXPECT_THAT(error.Description(), AllOf(HasSubstr(reason), HasSubstr(file.string())));
}

/// A Jet 4 file with a change.
void writePatched(const path& path, const std::function<void(PatchedFile&)>& change) {
    writeEveryType(path, Version::Jet4);
    PatchedFile file(path);
    change(file);
    file.save();
}

/// Sets the key of the pages, as encryption does.
void encrypt(PatchedFile& file) {
    std::vector<std::uint8_t> start(file.bytes().begin(), file.bytes().begin() + HeaderSize);
    maskHeader(start, Version::Jet4);
    start[0x3E] = 0x5A;
    maskHeader(start, Version::Jet4);
    for (std::size_t i = 0; i < HeaderSize; ++i) file.put8(i, start[i]);
}

TEST_F(BadFile, IsRefusedWithItsReason) {
    const struct {
        const char* name;
        std::function<void(const path&)> make;
        ErrorNumber number;
        const char* reason;
    } cases[] = {
        {"missing", [](const path&) {}, ErrorNumber::FileNotFound, "non esiste"},
        {"folder", [](const path& p) { std::filesystem::create_directory(p); },
         ErrorNumber::PathAccess, "cartella"},
        {"pipe", [](const path& p) { ASSERT_EQ(::mkfifo(p.c_str(), 0600), 0); },
         ErrorNumber::PathAccess, "non è un file normale"},
        {"empty", [](const path& p) { velt::test::writeBytes(p, ""); },
         ErrorNumber::UnknownFileFormat, "vuoto"},
        {"text", [](const path& p) { velt::test::writeBytes(p, std::string(10'000, 'x')); },
         ErrorNumber::UnknownFileFormat, "non è un database Access"},
        {"other version",
         [](const path& p) { writePatched(p, [](PatchedFile& file) { file.put8(0x14, 7); }); },
         ErrorNumber::UnknownFileFormat, "non è un database Access"},
        {"encrypted", [](const path& p) { writePatched(p, encrypt); }, ErrorNumber::EncryptedFile,
         "cifrato"},
        {"no catalogue",
         [](const path& p) {
             writePatched(p, [](PatchedFile& file) { file.put8(2 * PatchedFile::PageSize, 1); });
         },
         ErrorNumber::UnknownFileFormat, "danneggiato"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        const path p = folder_ / c.name;
        c.make(p);
        expectError(c.number, c.reason, p, [&p] { static_cast<void>(Database::open(p)); });
        expectError(c.number, c.reason, p, [&p] { static_cast<void>(Writer::open(p)); });
    }
}

// However much is missing: an error, or all rows that were written.
TEST_F(BadFile, TruncatedIsAnErrorAndNeverLessRows) {
    writeEveryType(file(), Version::Jet4);
    const Reading whole = readEverything(file());
    ASSERT_EQ(whole.errors + whole.unreadable, 0U);
    const auto size = std::filesystem::file_size(file());
    int opened = 0;
    for (std::uintmax_t left = size - 1; left > 0; left -= std::min<std::uintmax_t>(left, 1000)) {
        std::filesystem::resize_file(file(), left);
        try {
            const Reading reading = readEverything(file());
            ++opened;
            EXPECT_TRUE(reading.errors > 0 || reading.rows == whole.rows) << left;
        } catch (const RuntimeError& error) {
            EXPECT_TRUE(error.is(ErrorNumber::UnknownFileFormat)) << error.Description();
        }
    }
    EXPECT_GT(opened, 10);
}

TEST_F(BadFile, UnknownAndLinkedTablesAreRefused) {
    writeEveryType(file(), Version::Jet4);
    const auto refuse = [this](const char* name, const char* reason) {
        const auto database = Database::open(file());
        EXPECT_FALSE(database->hasTable(name));
        expectError(ErrorNumber::UnknownTable, reason, file(),
                    [&] { static_cast<void>(database->table(name)); });
    };
    refuse("Allarmi", "\"Allarmi\"");
    refuse("MSysObjects", "\"MSysObjects\"");

    PatchedFile patched(file());
    const std::string entry("V\0u\0o\0t\0a\0", 10);  // the type is 8 bytes behind the row's begin
    const std::size_t name = patched.bytes().find(entry);
    ASSERT_NE(name, std::string::npos);
    patched.put16(name - 32 + 10, 6);
    patched.save();
    refuse("Vuota", "collegata");
    EXPECT_THAT(Database::open(file())->tableNames(), testing::ElementsAre("T"));
}

TEST_F(BadFile, DamagedTableIsNamedAndOthersAreRead) {
    writeEveryType(file(), Version::Jet4);
    const auto damage = [this](std::size_t offset, unsigned value, const char* reason) {
        PatchedFile patched(file());
        const std::string names("B\0o\0o\0l\0", 8);  // the first column's name
        const std::size_t definition = patched.bytes().find(names) / PatchedFile::PageSize;
        const std::size_t at = definition * PatchedFile::PageSize + offset;
        const std::uint8_t before = patched.u8(at);
        patched.put8(at, value);
        patched.save();
        const auto database = Database::open(file());
        expectError(ErrorNumber::UnknownFileFormat, reason, file(),
                    [&] { static_cast<void>(database->table("T")); });
        EXPECT_EQ(database->table("Vuota").columns().size(), everyType().size());
        patched.put8(at, before);
        patched.save();
    };
    damage(0, 1, "\"T\"");
    damage(7, 9, "esce dal file");           // the next page of the definition
    damage(46, 0xFF, "\"T\"");               // number of columns
    damage(54, 0xFF, "\"T\"");               // number of indexes
    damage(58, 0x7F, "mappa");               // page of the map
    damage(63, 17, "tipo sconosciuto");      // type of the first column
    damage(69, 0x20, "numero impossibile");  // its number
}

TEST_F(BadFile, ShorteningWhileReadIsAnErrorOrACleanEnd) {
    const std::vector<Row> values(200'000, Row{std::int32_t{1}});
    Writer writer = Writer::create(file());
    writeTable(writer, "T", {{"N", ColumnType::Long}}, values);
    const auto size = std::filesystem::file_size(file());
    const auto database = Database::open(file());
    Cursor rows(database->table("T"));
    for (int i = 0; i < 1000; ++i) ASSERT_TRUE(rows.next());
    std::filesystem::resize_file(file(), size / 2);
    expectError(ErrorNumber::UnknownFileFormat, "accorciato", file(), [&rows] {
        while (rows.next()) {
        }
    });
    expectError(ErrorNumber::UnknownFileFormat, "incompleto", file(),
                [&] { static_cast<void>(database->table("T")); });
    std::filesystem::resize_file(file(), 0);
    rows.rewind();
    EXPECT_THROW(static_cast<void>(rows.next()), RuntimeError);
}

}  // namespace
}  // namespace velt::jet::test
