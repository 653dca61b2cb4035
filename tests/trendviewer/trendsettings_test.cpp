// SPDX-License-Identifier: MIT
#include "tests/trendviewer/trendviewerfixture.h"

#include <gmock/gmock.h>

namespace velt {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::IsSupersetOf;
using testing::Pair;

class TrendSettingsTest : public TrendViewerFixture {
protected:
    std::vector<int> positions() const {
        std::vector<int> all = {cmbRange.ListIndex(), cmbVRX.ListIndex()};
        for (const Pen& pen : penne) all.push_back(pen.cmbTrend.ListIndex());
        return all;
    }
};

TEST_F(TrendSettingsTest, WritesItsKeysOnTerminate) {
    startWith("a.ini");
    cmbVRX.ListIndex(0);
    setStart(start);
    cmbRange.ListIndex(6);
    penne[1].cmbTrend.ListIndex(2);
    penne[0].colore.BackColor(0x00FF8040);
    chkNormalizzato.toggle();
    cmbScala.ListIndex(2);
    chkAutoUpdate.toggle();
    cmdAvanti.click();
    viewer.Terminate();
    EXPECT_THAT(
        saved(),
        IsSupersetOf({Pair("isStart", "1"), Pair("isEnd", "1"),
                      Pair("startDate", "14/03/2006 16.00.00"),
                      Pair("endDate", "15/03/2006 16.00.00"), Pair("cmbRange", "6"),
                      Pair("cmbVRX", "0"), Pair("cmbTrend0", "0"), Pair("cmbTrend1", "2"),
                      Pair("cmbTrend2", "0"), Pair("cmbTrend3", "0"), Pair("Norm", "1"),
                      Pair("IndexScala", "1"), Pair("AutoUpdate", "1"), Pair("colore1", "#4080FF"),
                      Pair("NumeroPenneSelezionate", "1"), Pair("PeriodoCampionamento", "86")}));
    EXPECT_EQ(services.settingsFactory.commits, 1);
    viewer.Terminate();
    EXPECT_EQ(services.settingsFactory.commits, 1) << "one save is enough";
}

TEST_F(TrendSettingsTest, RestoresWhatWasSaved) {
    saved() = {{"cmbRange", "5"},      {"startDate", "14/03/2006 10.00.00"},
               {"cmbVRX", "0"},        {"cmbTrend0", "3"},
               {"cmbTrend1", "0"},     {"cmbTrend2", "1"},
               {"cmbTrend3", "2"},     {"Norm", "1"},
               {"IndexScala", "3"},    {"AutoUpdate", "1"},
               {"colore1", "#0A0B0C"}, {"colore2", "255"}};
    startWith("a.ini");
    EXPECT_THAT(positions(), ElementsAre(5, 0, 3, 0, 1, 2));
    EXPECT_EQ(DataIniziale.Value(), start);
    EXPECT_EQ(TimeIniziale.Value(), start);
    EXPECT_EQ(DataFinale.Value(), start.addSeconds(43200));
    EXPECT_EQ(chkNormalizzato.Value(), 1);
    EXPECT_TRUE(chart.normalised);
    EXPECT_EQ(cmbScala.ListIndex(), 4);
    EXPECT_EQ(chart.scale, 3);
    EXPECT_EQ(chkAutoUpdate.Value(), 1);
    EXPECT_THAT(chart.colors[0], ElementsAre(10, 11, 12));
    EXPECT_THAT(chart.colors[1], ElementsAre(255, 0, 0));
    EXPECT_EQ(penne[1].colore.BackColor(), 255u);
    tmr.fire();
    EXPECT_EQ(chart.plots.size(), 1u) << "auto update draws what was restored";

    const auto stored = saved();
    viewer.Terminate();
    for (const auto& [key, value] : stored) {
        if (!key.starts_with("colore")) {
            EXPECT_EQ(saved()[key], value) << key;
        }
    }
    EXPECT_EQ(saved()["colore2"], "#FF0000");
}

TEST_F(TrendSettingsTest, WithoutKeysTheDefaults) {
    startWith("a.ini");
    EXPECT_THAT(positions(), ElementsAre(0, -1, -1, -1, -1, -1)) << "no station chosen";
    EXPECT_EQ(DataFinale.Value(), services.clock().now());
    EXPECT_EQ(chkAutoUpdate.Value() + chkNormalizzato.Value() + cmbScala.ListIndex(), 0);
    cmbScala.ListIndex(2);
    saved() = {{"cmbRange", "9"}};
    viewer.FileIni("a.ini");
    EXPECT_EQ(DataIniziale.Value(), services.clock().now().addSeconds(-604800));
    EXPECT_EQ(cmbScala.ListIndex(), 2) << "a scale that is not stored leaves the choice";
}

TEST_F(TrendSettingsTest, IgnoresWhatItCannotUse) {
    saved() = {{"cmbVRX", "0"}, {"cmbTrend1", "1"}};
    startWith("a.ini");
    struct Case {
        const char* key;
        const char* value;
    };
    const Case cases[] = {{"cmbRange", "13"},   {"cmbRange", "-2"},    {"cmbRange", "ieri"},
                          {"cmbRange", "-1"},   {"cmbVRX", "2"},       {"cmbVRX", "-2"},
                          {"cmbTrend1", "9"},   {"IndexScala", "4"},   {"IndexScala", "-1"},
                          {"IndexScala", "x"},  {"colore1", "giallo"}, {"colore1", "#12345"},
                          {"AutoUpdate", "si"}, {"cmbTrend1", "1e99"}};
    const auto color = penne[0].colore.BackColor();
    for (const Case& c : cases) {
        saved() = {{"cmbVRX", "0"}, {"cmbTrend1", "1"}};
        viewer.FileIni("a.ini");
        saved()[c.key] = c.value;
        viewer.FileIni("a.ini");
        const int first = std::string(c.value) == "1e99" ? -1 : 1;  // no number: the default
        EXPECT_THAT(positions(), ElementsAre(0, 0, -1, first, -1, -1)) << c.key << "=" << c.value;
        EXPECT_EQ(cmbScala.ListIndex(), 0) << c.key << "=" << c.value;
        EXPECT_EQ(penne[0].colore.BackColor(), color) << c.key << "=" << c.value;
        EXPECT_EQ(DataFinale.Value(), services.clock().now()) << c.key << "=" << c.value;
    }
}

TEST_F(TrendSettingsTest, AFolderThatIsNotThereDoesNotWipeTheChoices) {
    saved() = {{"cmbVRX", "1"}, {"cmbTrend0", "1"}, {"cmbRange", "3"}};
    services.files.files.clear();
    startWith("a.ini");
    viewer.Terminate();
    EXPECT_THAT(saved(),
                IsSupersetOf({Pair("cmbVRX", "1"), Pair("cmbTrend0", "1"), Pair("cmbRange", "3")}));
}

TEST_F(TrendSettingsTest, WithoutFileIniNothingIsReadOrWritten) {
    startWith();
    EXPECT_THAT(positions(), ElementsAre(0, 0, 0, 0, 0, 0));
    viewer.Terminate();
    EXPECT_FALSE(services.settingsFactory.files.contains(""));
    EXPECT_EQ(services.settingsFactory.commits, 0);
}

TEST_F(TrendSettingsTest, AControlThatNeverRestoredSavesNothing) {
    fakes::FakePropertyBag bag;
    bag.values = {{"FileIni", "a.ini"}};
    viewer.ReadProperties(bag);
    viewer.File(Config);  // run time, but never shown
    viewer.Terminate();
    EXPECT_FALSE(services.settingsFactory.files.contains("a.ini"));
}

}  // namespace
}  // namespace velt
