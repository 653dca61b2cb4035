// SPDX-License-Identifier: MIT
#include "demo/installation.h"

#include "adapters/access/jet/cursor.h"
#include "platform/runtimeerror.h"
#include "tests/tempfolder.h"

#include <gtest/gtest.h>

#include <fstream>
#include <thread>

namespace velt::demo {
namespace {

int rowsOf(const std::filesystem::path& file) {
    jet::Cursor cursor(jet::Database::open(file)->table("Allarmi"));
    int rows = 0;
    while (cursor.next()) ++rows;
    EXPECT_EQ(cursor.unreadableRows(), 0u);
    return rows;
}

class InstallationTest : public testing::Test {
protected:
    InstallationOptions options() {
        InstallationOptions options;
        options.folder = folder / "data" / "demo";
        options.historyAlarms = 300;
        options.stationDays = 1;
        options.alarmInterval = std::chrono::milliseconds(5);
        return options;
    }
    TempFolder folder;
    SystemClock clock;
};

TEST_F(InstallationTest, WritesAHistoryAndGoesOnAppending) {
    std::filesystem::path file;
    int before = 0;
    {
        Installation installation(options(), clock);
        file = installation.alarmFile();
        before = rowsOf(file);
        EXPECT_GT(before, 200);
        while (rowsOf(file) < before + 5) std::this_thread::yield();
    }
    const int after = rowsOf(file);
    EXPECT_GE(after, before + 5);
    // A later start keeps what is there.
    InstallationOptions quiet = options();
    quiet.alarmInterval = std::chrono::hours(1);
    const Installation again(quiet, clock);
    EXPECT_EQ(rowsOf(file), after);
}

TEST_F(InstallationTest, TakesAnotherPortWhenItsOwnIsBusy) {
    InstallationOptions first = options();
    first.opcPort = 0;
    const Installation holder(first, clock);
    const std::string endpoint = holder.opcEndpoint();
    std::string told;
    InstallationOptions second = options();
    second.folder = folder / "second";
    second.opcPort =
        static_cast<std::uint16_t>(std::stoi(endpoint.substr(endpoint.rfind(':') + 1)));
    second.log = [&told](const std::string& text) { told += text; };
    const Installation other(second, clock);
    EXPECT_NE(other.opcEndpoint(), endpoint);
    EXPECT_NE(told.find("già in uso"), std::string::npos) << told;
}

TEST_F(InstallationTest, AFolderServesOneAtATime) {
    const Installation first(options(), clock);
    EXPECT_THROW(Installation(options(), clock), RuntimeError);
}

TEST_F(InstallationTest, RefusesWhatItCannotUse) {
    std::ofstream(folder / "data") << "a file where the folder should be";
    EXPECT_THROW(Installation(options(), clock), RuntimeError);

    InstallationOptions damaged = options();
    damaged.folder = folder / "other";
    std::filesystem::create_directories(damaged.folder);
    std::ofstream(damaged.folder / "Allarmi.mdb") << "no database";
    EXPECT_THROW(Installation(damaged, clock), RuntimeError);
}

}  // namespace
}  // namespace velt::demo
