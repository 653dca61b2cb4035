// SPDX-License-Identifier: MIT
#include "connviewer/rtuconfig.h"

#include "tests/fakes/fakeservices.h"

#include <gmock/gmock.h>

namespace velt {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(CartellaDownloadTest, IsTheParentFolderAndOneBackslash) {
    const std::pair<const char*, const char*> cases[] = {
        {"", ""},
        {"D:\\Dati\\VeltRTU.ini", "D:\\Dati\\"},
        {"D:\\VeltRTU.ini", "D:\\\\"},
        {"D:VeltRTU.ini", "D:\\"},
        {"D:\\Dati\\Sotto\\", "D:\\Dati\\"},
        {"\\\\server\\dati\\VeltRTU.ini", "\\\\server\\dati\\"},
        {"/srv/dati/VeltRTU.ini", "/srv/dati\\"},
        {"VeltRTU.ini", "\\"},
        {"D:\\", "\\"},
    };
    for (const auto& [file, folder] : cases) EXPECT_EQ(CartellaDownload(file), folder) << file;
}

TEST(RtuConfigTest, ReadsHostStationsAndTrendsWithoutGaps) {
    fakes::FakeSettingsFactory factory;
    auto& file = factory.files["VeltRTU.ini"];
    RtuConfig config{factory, "VeltRTU.ini"};
    file["Common"] = {{"Hostname", "plc"}, {"NumeroVRX", "3"}, {"VRX0", "RTU01"},
                      {"VRX1", ""},        {"VRX2", "RTU03"},  {"VRX3", "beyond the count"}};
    file["VRX1"] = {{"G2V0", "Portata"},         {"G2V0_Desc", "Portata in uscita"},
                    {"G2V0_UdM", "l/s"},         {"G0V19", "Livello"},
                    {"G0V20", "beyond"},         {"G4V0", "beyond"},
                    {"G3V1_Desc", "of no trend"}};
    EXPECT_THAT(config.trends(1),
                ElementsAre(ConfiguredTrend{"Livello", "", ""},
                            ConfiguredTrend{"Portata", "Portata in uscita", "l/s"}));
    EXPECT_THAT(config.stations(), ElementsAre("RTU01", "RTU03"));
    EXPECT_THAT(config.trends(7), IsEmpty());
    EXPECT_EQ(config.Hostname(), "plc");
    file["Common"]["NumeroVRX"] = "-3";
    EXPECT_EQ(config.NumeroVRX(), 0);
    file["Common"] = {{"NumeroVRX", "32767"}, {"VRX32766", "last"}};
    EXPECT_THAT(config.stations(), ElementsAre("last"));
}

}  // namespace
}  // namespace velt
