// SPDX-License-Identifier: MIT
#include "demo/stationdatabase.h"

#include "adapters/access/jet/cursor.h"
#include "adapters/ini/inisettings.h"
#include "connviewer/rtuconfig.h"
#include "demo/plantcatalog.h"
#include "demo/plantconfig.h"
#include "platform/runtimeerror.h"
#include "tests/tempfolder.h"

#include <gtest/gtest.h>

#include <cmath>
#include <fstream>

namespace velt::demo {
namespace {

const Date Start = Date::fromFields({2026, 3, 2, 10, 20, 30, 0});

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

}  // namespace
}  // namespace velt::demo
