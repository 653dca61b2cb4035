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
        {"D:\\Dati\\\\VeltRTU.ini", "D:\\Dati\\"},
        {"D:\\Dati\\Sotto\\", "D:\\Dati\\"},
        {"\\\\server\\dati\\VeltRTU.ini", "\\\\server\\dati\\"},
        {"/srv/dati/VeltRTU.ini", "/srv/dati\\"},
        {"/VeltRTU.ini", "/\\"},
        {"VeltRTU.ini", "\\"},
        {"D:\\", "\\"},
        {"//", "\\"},
    };
    for (const auto& [file, folder] : cases) EXPECT_EQ(CartellaDownload(file), folder) << file;
}

class RtuConfigTest : public testing::Test {
protected:
    fakes::FakeSettingsFactory factory;
    RtuConfig config{factory, "VeltRTU.ini"};
    std::map<std::string, fakes::FakeSettingsFactory::Keys>& file = factory.files["VeltRTU.ini"];
};

TEST_F(RtuConfigTest, ReadsHostAndStationsWithoutGaps) {
    file["Common"] = {{"Hostname", "plc"}, {"NumeroVRX", "3"}, {"VRX0", "RTU01"},
                      {"VRX1", ""},        {"VRX2", "RTU03"},  {"VRX3", "beyond the count"}};
    EXPECT_EQ(config.Hostname(), "plc");
    EXPECT_EQ(config.NumeroVRX(), 3);
    EXPECT_THAT(config.stations(), ElementsAre("RTU01", "RTU03"));
    for (const char* count : {"", "-3", "tre", "32768", "65537", "3 stazioni"}) {
        file["Common"]["NumeroVRX"] = count;
        EXPECT_EQ(config.NumeroVRX(), 0) << count;
        EXPECT_THAT(config.stations(), IsEmpty()) << count;
    }
    file["Common"] = {{"NumeroVRX", "32767"}, {"VRX0", "RTU01"}, {"VRX32766", "last"}};
    EXPECT_THAT(config.stations(), ElementsAre("RTU01", "last"));
}

TEST_F(RtuConfigTest, TrendsComeGroupAfterGroup) {
    file["VRX1"] = {{"G2V0", "Portata"},         {"G2V0_Desc", "Portata in uscita"},
                    {"G2V0_UdM", "l/s"},         {"G0V19", "Livello"},
                    {"G0V20", "beyond"},         {"G4V0", "beyond"},
                    {"G3V1_Desc", "of no trend"}};
    file["VRX0"] = {{"G0V0", "of another station"}};
    EXPECT_THAT(config.trends(1),
                ElementsAre(ConfiguredTrend{"Livello", "", ""},
                            ConfiguredTrend{"Portata", "Portata in uscita", "l/s"}));
    EXPECT_THAT(config.trends(7), IsEmpty());
    EXPECT_THAT(config.stations(), IsEmpty()) << "the section goes back to the common one";
    EXPECT_EQ(RtuConfig(factory, "").Hostname(), "");
}

}  // namespace
}  // namespace velt
