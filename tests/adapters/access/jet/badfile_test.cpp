// SPDX-License-Identifier: MIT
// Files that are not there, not whole, not Access, or change while they are read.
#include "adapters/access/jet/cursor.h"
#include "adapters/access/jet/header.h"
#include "tests/adapters/access/jet/everytype.h"
#include "tests/adapters/access/jet/patchedfile.h"

#include <random>
#include <sys/stat.h>

namespace velt::jet::test {
namespace {

using std::filesystem::path;
using BadFile = FileTest;

/// Sets the key of the pages, as encryption does.
void encrypt(PatchedFile& file) {
    std::vector<std::uint8_t> start(file.bytes().begin(), file.bytes().begin() + HeaderSize);
    maskHeader(start, Version::Jet4);
    start[0x3E] = 0x5A;
    maskHeader(start, Version::Jet4);
    for (std::size_t i = 0; i < HeaderSize; ++i) file.put8(i, start[i]);
}

TEST_F(BadFile, IsRefusedWithItsReason) {
    const auto patched = [](const std::function<void(PatchedFile&)>& change) {
        return [change](const path& p) {
            writeEveryType(p, Version::Jet4);
            PatchedFile file(p);
            change(file);
            file.save();
        };
    };
    using Kind = ErrorNumber;
    const struct {
        std::function<void(const path&)> make;
        ErrorNumber number;
        const char* reason;
    } cases[] = {
        {[](const path&) {}, Kind::FileNotFound, "non esiste"},
        {[](const path& p) { std::filesystem::create_directory(p); }, Kind::PathAccess, "cartella"},
        {[](const path& p) { ASSERT_EQ(::mkfifo(p.c_str(), 0600), 0); }, Kind::PathAccess,
         "non è un file normale"},
        {[](const path& p) { velt::test::writeBytes(p, ""); }, Kind::UnknownFileFormat, "vuoto"},
        {[](const path& p) { velt::test::writeBytes(p, std::string(10'000, 'x')); },
         Kind::UnknownFileFormat, "non è un database Access"},
        {patched([](PatchedFile& file) { file.put8(0x14, 7); }), Kind::UnknownFileFormat,
         "non è un database Access"},
        {patched(encrypt), Kind::EncryptedFile, "cifrato"},
        {patched([](PatchedFile& file) { file.put8(2 * PatchedFile::PageSize, 1); }),
         Kind::UnknownFileFormat, "danneggiato"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.reason);
        const path p = folder_ / std::to_string(&c - cases);
        c.make(p);
        expectError(
            c.number, c.reason, [&p] { (void)Database::open(p); }, p);
        expectError(
            c.number, c.reason, [&p] { (void)Writer::open(p); }, p);
    }
}

// However much is missing: an error, or all rows that were written.
TEST_F(BadFile, TruncatedIsAnErrorAndNeverLessRows) {
    writeEveryType(file_, Version::Jet4);
    const Reading whole = readEverything(file_);
    ASSERT_EQ(whole.errors + whole.unreadable, 0U);
    int opened = 0;
    for (auto left = std::filesystem::file_size(file_) - 1; left > 1000; left -= 1000) {
        std::filesystem::resize_file(file_, left);
        try {
            const Reading reading = readEverything(file_);
            ++opened;
            EXPECT_TRUE(reading.errors > 0 || reading.rows == whole.rows) << left;
        } catch (const RuntimeError& error) {
            EXPECT_TRUE(error.is(ErrorNumber::UnknownFileFormat)) << error.Description();
        }
    }
    EXPECT_GT(opened, 10);
}

TEST_F(BadFile, WithAnyWrongBytesEndsWithValuesOrErrors) {
    std::mt19937 random(20060314);
    const auto below = [&random](std::size_t limit) { return random() % limit; };
    for (const Version version : {Version::Jet3, Version::Jet4}) {
        std::filesystem::remove(file_);
        writeEveryType(file_, version);
        const std::string sound = velt::test::bytesOf(file_);
        std::uint64_t refused = 0, damaged = 0;
        for (int mutant = 0; mutant < 200; ++mutant) {
            std::string bytes = sound;
            for (std::size_t changes = 1 + below(12); changes > 0; --changes) {
                // Most of the structure stands in the heads of pages.
                const std::size_t head = below(bytes.size() / 2048) * 2048 + below(120);
                constexpr unsigned char Usual[] = {0, 1, 0x7F, 0x80, 0xFF, 0x40};
                bytes[below(3) == 0 ? below(bytes.size()) : head] =
                    static_cast<char>(below(2) == 0 ? Usual[below(sizeof Usual)] : below(256));
            }
            velt::test::writeBytes(file_, bytes);
            try {
                const Reading reading = readEverything(file_);
                damaged += reading.errors + reading.unreadable;
            } catch (const RuntimeError&) {
                ++refused;
            }
            // A writer must not trust the file either.
            ignoreErrors([this] {
                Writer writer = Writer::open(file_);
                for (const Row& row : everyTypeRows()) writer.append("T", row);
                writer.flush();
            });
        }
        EXPECT_TRUE(refused > 0 && damaged > 0);
    }
}

TEST_F(BadFile, UnknownLinkedAndDamagedTablesAreNamedAndOthersAreRead) {
    writeEveryType(file_, Version::Jet4);
    const auto refuse = [this](ErrorNumber number, const char* table, const char* reason) {
        expectError(
            number, reason, [&] { (void)Database::open(file_)->table(table); }, file_);
    };
    for (const char* name : {"Allarmi", "MSysObjects"}) {
        refuse(ErrorNumber::UnknownTable, name, name);
        EXPECT_FALSE(Database::open(file_)->hasTable(name));
    }
    const struct {
        std::size_t offset;
        unsigned value;
        const char* reason;
    } damages[] = {
        {7, 9, "esce dal file"},           // the next page of the definition
        {46, 0xFF, "\"T\""},               // number of columns
        {58, 0x7F, "mappa"},               // page of the map
        {63, 17, "tipo sconosciuto"},      // type of the first column
        {69, 0x20, "numero impossibile"},  // its number
    };
    const std::string sound = velt::test::bytesOf(file_);
    for (const auto& damage : damages) {
        patch([&](PatchedFile& file) {
            file.put8(file.pageOf("Bool") * PatchedFile::PageSize + damage.offset, damage.value);
        });
        refuse(ErrorNumber::UnknownFileFormat, "T", damage.reason);
        EXPECT_EQ(Database::open(file_)->table("Vuota").columns().size(), everyType().size());
        velt::test::writeBytes(file_, sound);
    }
    patch([](PatchedFile& file) {
        const std::string entry("V\0u\0o\0t\0a\0", 10);  // the type is 22 bytes before
        file.put16(file.bytes().find(entry) - 22, 6);
    });
    refuse(ErrorNumber::UnknownTable, "Vuota", "collegata");
    EXPECT_THAT(Database::open(file_)->tableNames(), testing::ElementsAre("T"));
}

TEST_F(BadFile, ShorteningWhileReadIsAnErrorOrACleanEnd) {
    const std::vector<Row> values(200'000, Row{std::int32_t{1}});
    Writer writer = Writer::create(file_);
    writeTable(writer, "T", {{"N", ColumnType::Long}}, values);
    const auto database = Database::open(file_);
    Cursor rows(database->table("T"));
    for (int i = 0; i < 1000; ++i) ASSERT_TRUE(rows.next());
    const auto readOn = [&rows] {
        while (rows.next()) {
        }
    };
    constexpr auto Damaged = ErrorNumber::UnknownFileFormat;
    std::filesystem::resize_file(file_, std::filesystem::file_size(file_) / 2);
    expectError(Damaged, "accorciato", readOn, file_);
    expectError(
        Damaged, "incompleto", [&] { (void)database->table("T"); }, file_);
    std::filesystem::resize_file(file_, 0);
    rows.rewind();
    expectError(Damaged, "accorciato", readOn, file_);
}

}  // namespace
}  // namespace velt::jet::test
