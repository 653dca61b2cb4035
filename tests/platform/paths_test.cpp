// SPDX-License-Identifier: MIT
#include "platform/paths.h"

#include "tests/tempfolder.h"

#include <gtest/gtest.h>

#include <fstream>

namespace velt {
namespace {

namespace fs = std::filesystem;

class Paths : public ::testing::Test {
protected:
    void makeFile(const std::string& name) {
        fs::create_directories((folder_ / name).parent_path());
        std::ofstream(folder_ / name) << "x";
    }
    /// What `name` below the folder resolves to, relative to the folder; "-" for nothing.
    std::string resolved(const std::string& name) const {
        const auto path = resolvePath((folder_ / name).string());
        return path ? path->lexically_relative(folder_.path()).string() : "-";
    }

    TempFolder folder_;
};

TEST_F(Paths, FindWhatAWindowsPathMeans) {
    makeFile("Dati/rtu01.mdb");
    makeFile("Dati/RTU02.mdb");
    makeFile("Dati/rtu02.mdb");
    makeFile("Dati/Città.mdb");
    makeFile("Dati/a×b.mdb");
    const std::pair<const char*, const char*> cases[] = {
        {"dati\\RTU01.MDB", "Dati/rtu01.mdb"},
        {"Dati//rtu01.mdb", "Dati/rtu01.mdb"},
        {"DATI/../dati/./Rtu01.Mdb", "Dati/../Dati/./rtu01.mdb"},
        {"dati/rtu02.mdb", "Dati/rtu02.mdb"},  // the exact name wins over the other spelling
        {"dati/Rtu02.Mdb", "Dati/RTU02.mdb"},  // neither is exact: the first in byte order
        {"DATI\\CITTÀ.MDB", "Dati/Città.mdb"},
        {"Dati/a÷b.mdb", "-"},  // the signs between the accented letters have no case
        {"DATI\\", "Dati"},
        {"Dati/rtu03.mdb", "-"},
        {"Dati/rtu01.mdb/x", "-"},
    };
    for (const auto& [name, expected] : cases) EXPECT_EQ(resolved(name), expected) << name;
}

TEST_F(Paths, NothingComesOfHopelessNames) {
    EXPECT_FALSE(resolvePath(""));
    EXPECT_FALSE(resolvePath(std::string("a\0b", 3)));
    EXPECT_FALSE(resolvePath((folder_ / std::string(100'000, 'x')).string()));
}

}  // namespace
}  // namespace velt
