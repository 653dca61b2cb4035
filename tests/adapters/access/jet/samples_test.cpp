// SPDX-License-Identifier: MIT
// Checks every table of a folder of Access files that other programs wrote. Its MANIFEST.tsv holds
// file, table, rows and hash of the cells as an independent reader saw them.
#include "tests/adapters/access/jet/canonical.h"

#include <gtest/gtest.h>

#include <charconv>
#include <cstdlib>
#include <fstream>
#include <map>
#include <set>
#include <sstream>
#include <string>

namespace velt::jet::test {
namespace {

struct Expected {
    std::uint64_t rows = 0;
    std::string hash;
};
using Manifest = std::map<std::string, std::map<std::string, Expected>>;  // by file and table

Manifest readManifest(const std::filesystem::path& path) {
    Manifest manifest;
    std::ifstream stream(path);
    for (std::string line; std::getline(stream, line);) {
        if (line.empty() || line.front() == '#') continue;
        std::istringstream fields(line);
        std::string file, table, rows;
        Expected expected;
        std::getline(fields, file, '\t');
        std::getline(fields, table, '\t');
        std::getline(fields, rows, '\t');
        std::getline(fields, expected.hash, '\t');
        expected.rows = std::stoull(rows);
        manifest[file][table] = expected;
    }
    return manifest;
}

std::string asHex(std::uint64_t value) {
    std::ostringstream text;
    text.fill('0');
    text.width(16);
    text << std::hex << value;
    return text.str();
}

TEST(Samples, EveryTableMatchesTheManifest) {
    const char* folder = std::getenv("VELT_ACCESS_SAMPLES");
    if (folder == nullptr || *folder == 0) GTEST_SKIP() << "VELT_ACCESS_SAMPLES is not set";
    const std::filesystem::path samples(folder);
    const Manifest manifest = readManifest(samples / "MANIFEST.tsv");
    ASSERT_FALSE(manifest.empty());

    for (const auto& [file, tables] : manifest) {
        SCOPED_TRACE(file);
        const auto database = Database::open(samples / file);
        std::set<std::string> names;
        for (const auto& [name, expected] : tables) {
            SCOPED_TRACE(name);
            names.insert(name);
            const Digest read = digest(database->table(name));
            EXPECT_EQ(read.rows, expected.rows);
            EXPECT_EQ(asHex(read.hash), expected.hash);
        }
        const auto listed = database->tableNames();
        EXPECT_EQ(std::set<std::string>(listed.begin(), listed.end()), names);
    }
}

}  // namespace
}  // namespace velt::jet::test
