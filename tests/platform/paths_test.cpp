// SPDX-License-Identifier: MIT
#include "platform/paths.h"

#include "tests/filebytes.h"
#include "tests/tempfolder.h"

#include <gtest/gtest.h>

namespace velt {
namespace {

TEST(Paths, FindWhatAWindowsPathMeans) {
    const TempFolder folder;
    std::filesystem::create_directory(folder / "Dati");
    for (const char* name : {"rtu01.mdb", "RTU02.mdb", "rtu02.mdb", "Città.mdb", "a×b.mdb"})
        test::writeBytes(folder / "Dati" / name, "x");
    const std::pair<const char*, const char*> cases[] = {
        {"dati\\RTU01.MDB", "Dati/rtu01.mdb"},
        {"DATI/../dati/.//Rtu01.Mdb", "Dati/../Dati/./rtu01.mdb"},
        {"dati/rtu02.mdb", "Dati/rtu02.mdb"},  // the exact name wins over the other spelling
        {"dati/Rtu02.Mdb", "Dati/RTU02.mdb"},  // neither is exact: the first in byte order
        {"DATI\\CITTÀ.MDB", "Dati/Città.mdb"},
        {"Dati/a÷b.mdb", "-"},  // the signs between the accented letters have no case
        {"DATI\\", "Dati"},
        {"Dati/rtu03.mdb", "-"},
        {"Dati/rtu01.mdb/x", "-"},
    };
    for (const auto& [name, expected] : cases) {
        const auto path = resolvePath((folder / name).string());
        const auto found = path ? path->lexically_relative(folder.path()).string() : "-";
        EXPECT_EQ(found, expected) << name;
    }
    for (const std::string& hopeless :
         {std::string(), std::string("a\0b", 3), (folder / std::string(100'000, 'x')).string()})
        EXPECT_FALSE(resolvePath(hopeless));
}

}  // namespace
}  // namespace velt
