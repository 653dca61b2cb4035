// SPDX-License-Identifier: MIT
// Checks every table of a folder of Access files that other programs wrote. Its MANIFEST.tsv holds
// file, table, rows and hash of the cells as an independent reader saw them.
#include "tests/adapters/access/jet/canonical.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <map>
#include <sstream>
#include <string>

namespace velt::jet::test {
namespace {

using Manifest = std::map<std::string, std::map<std::string, std::string>>;  // by file and table

/// The rows and the hash of each table, as one text.
Manifest readManifest(const std::filesystem::path& path) {
    Manifest manifest;
    std::ifstream stream(path);
    for (std::string line; std::getline(stream, line);) {
        if (line.empty() || line.front() == '#') continue;
        std::istringstream fields(line);
        std::string file, table;
        std::getline(fields, file, '\t');
        std::getline(fields, table, '\t');
        std::getline(fields, manifest[file][table]);
    }
    return manifest;
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
        std::map<std::string, std::string> read;
        for (const std::string& name : database->tableNames()) {
            const Digest content = digest(database->table(name));
            read[name] = std::to_string(content.rows) + '\t' + content.hash;
        }
        EXPECT_EQ(read, tables);
    }
}

}  // namespace
}  // namespace velt::jet::test
