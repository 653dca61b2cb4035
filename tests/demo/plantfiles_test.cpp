// SPDX-License-Identifier: MIT
// What the demo writes into its folder.
#include "adapters/access/jet/cursor.h"
#include "adapters/ini/inisettings.h"
#include "connviewer/rtuconfig.h"
#include "demo/alarmgenerator.h"
#include "demo/installation.h"
#include "demo/plantcatalog.h"
#include "demo/plantconfig.h"
#include "demo/stationdatabase.h"
#include "platform/runtimeerror.h"
#include "tests/tempfolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <fstream>
#include <map>
#include <set>
#include <thread>

namespace velt::demo {
namespace {

const Date End = Date::fromFields({2026, 1, 31, 12, 0, 0, 0});
const Date Start = End.addSeconds(-90 * 86400.0);

TEST(AlarmGenerator, MakesAPlausibleHistory) {
    const auto alarms = AlarmGenerator(1).history(Start, End, 20000);
    EXPECT_NEAR(static_cast<double>(alarms.size()), 20000, 1500);
    EXPECT_TRUE(std::ranges::is_sorted(alarms, {}, [](const Alarm& a) { return a.time.serial(); }));
    EXPECT_GT(alarms.front().time, Start);
    EXPECT_LE(alarms.back().time, End);

    std::set<std::string> stations, names, descriptions;
    std::map<std::string, int> open;  // raised and not yet cleared, by alarm
    int byDay = 0;
    for (const Alarm& alarm : alarms) {
        stations.insert(alarm.station);
        names.insert(alarm.name);
        descriptions.insert(alarm.description);
        int& count = open[alarm.station + alarm.name + alarm.description];
        if (alarm.event == "Attivo")
            ++count;
        else
            ASSERT_GT(count, 0) << alarm.event << " without an alarm";
        if (alarm.event == "Rientrato") --count;
        const int hour = alarm.time.fields().hour;
        byDay += hour >= 9 && hour < 21 ? 1 : 0;
    }
    EXPECT_EQ(stations.size(), 8u);
    EXPECT_EQ(names.size(), 25u);
    EXPECT_EQ(descriptions.size(), 400u);
    EXPECT_GT(byDay, 20000 * 6 / 10);
    EXPECT_EQ(AlarmGenerator(1).history(Start, End, 20000), alarms) << "the same seed";
    EXPECT_NE(AlarmGenerator(2).history(Start, End, 20000), alarms);
}

class StationDatabaseTest : public testing::Test {
protected:
    /// The minutes in which a table has samples.
    std::vector<double> minutes(const std::string& table) {
        std::vector<double> all;
        jet::Cursor cursor(jet::Database::open(file)->table(table));
        while (cursor.next())
            all.push_back(static_cast<double>(Date(cursor.real(0)).milliseconds()) / 60'000.0);
        EXPECT_EQ(cursor.unreadableRows(), 0u);
        return all;
    }

    TempFolder folder;
    const std::filesystem::path file = folder / "RTU01.MDB";
    const PlantStation station = plantStations(1).front();
};

TEST_F(StationDatabaseTest, HoldsOneTablePerTrendAndGrowsByWhatHasCome) {
    updateStationDatabase(file, station, Start, 2);
    EXPECT_EQ(jet::Database::open(file)->tableNames().size(), trendsOf(station).size());
    const auto before = minutes("Livello_vasca");
    EXPECT_GT(before.size(), 2 * 1440u - 4 * 180u);  // some hours may be lost
    EXPECT_LE(before.size(), 2 * 1440u);

    updateStationDatabase(file, station, Start.addSeconds(29), 2);
    EXPECT_EQ(minutes("Livello_vasca"), before) << "no whole minute has gone by";
    updateStationDatabase(file, station, Start.addSeconds(6 * 3600), 2);
    for (const PlantVariable& trend : trendsOf(station)) {
        const auto after = minutes(std::string(trend.trend));
        EXPECT_GE(after.size(), before.size());
        for (std::size_t i = 0; i < after.size(); ++i) {
            ASSERT_EQ(after[i], std::floor(after[i]));
            if (i > 0) {
                ASSERT_LT(after[i - 1], after[i]) << trend.trend;
            }
        }
    }
    EXPECT_GT(minutes("Livello_vasca").size(), before.size());
    EXPECT_FALSE(std::filesystem::exists(file.string() + ".new"));
}

TEST_F(StationDatabaseTest, LeavesAFileThatIsNoDatabaseAlone) {
    std::ofstream(file) << "no database";
    EXPECT_THROW(updateStationDatabase(file, station, Start, 1), RuntimeError);
    EXPECT_EQ(std::filesystem::file_size(file), 11u);
}

TEST_F(StationDatabaseTest, TheConfigurationNamesItsTables) {
    const auto stations = plantStations(1);
    SystemClock clock;
    ini::IniSettingsFactory settings(clock);
    const std::string path = (folder / "VeltRTU.ini").string();
    std::ofstream(path) << "[Common]\r\nHostname=vecchio\r\n[Altro]\r\nchiave=valore\r\n";
    writePlantConfig(settings, path, "opc.tcp://localhost:4841", stations);
    RtuConfig config(settings, path);
    EXPECT_EQ(config.Hostname(), "opc.tcp://localhost:4841");
    EXPECT_EQ(config.stations().size(), 8u);
    EXPECT_EQ(config.stations()[7], "RTU08");
    for (int n = 0; n < 8; ++n) {
        const auto expected = trendsOf(stations[static_cast<std::size_t>(n)]);
        const auto trends = config.trends(n);
        ASSERT_EQ(trends.size(), expected.size());
        for (std::size_t i = 0; i < trends.size(); ++i) {
            EXPECT_EQ(trends[i].Nome, expected[i].trend);
            EXPECT_FALSE(trends[i].Descrizione.empty());
        }
    }
    EXPECT_EQ(config.trends(0)[0], (ConfiguredTrend{"Livello_vasca", "Livello vasca", "m"}));
    const auto other = settings.create();
    other->NomeFile(path);
    other->Sezione("Altro");
    EXPECT_EQ(other->LeggiStringa("chiave", ""), "valore");
}

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
    EXPECT_THROW(Installation(quiet, clock), RuntimeError) << "a folder serves one at a time";
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
