// SPDX-License-Identifier: MIT
#include "tests/trendviewer/trendviewerfixture.h"

#include <gmock/gmock.h>

namespace velt {
namespace {

using testing::ElementsAre;
using testing::IsSupersetOf;
using testing::Pair;

using TrendSettingsTest = TrendViewerFixture;

TEST_F(TrendSettingsTest, RestoresWhatItHasSaved) {
    startWith("a.ini");
    EXPECT_EQ(positions(), "0 -1 -1 -1 -1 -1") << "no station chosen";
    EXPECT_EQ(window(), "03-14 17:45:12 - 03-14 18:45:12");
    EXPECT_EQ(chkAutoUpdate.Value() + chkNormalizzato.Value() + cmbScala.ListIndex(), 0);
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
    const auto keys = saved();
    std::string written;
    for (const auto& [key, value] : keys)
        if (!key.starts_with("colore")) written += key + "=" + value + "|";
    EXPECT_EQ(written,
              "AutoUpdate=1|IndexScala=1|Norm=1|NumeroPenneSelezionate=1|PeriodoCampionamento=86|"
              "cmbRange=6|cmbTrend0=0|cmbTrend1=2|cmbTrend2=0|cmbTrend3=0|cmbVRX=0|"
              "endDate=15/03/2006 16.00.00|isEnd=1|isStart=1|startDate=14/03/2006 16.00.00|");
    viewer.Terminate();
    EXPECT_EQ(services.settingsFactory.commits, 1) << "one save is enough";

    saved() = {};
    viewer.FileIni("a.ini");
    EXPECT_EQ(positions(), "0 -1 -1 -1 -1 -1");
    EXPECT_EQ(cmbScala.ListIndex(), 2) << "a scale that is not stored leaves the choice";
    cmbScala.ListIndex(0);
    cmbVRX.ListIndex(0);
    penne[0].cmbTrend.ListIndex(1);
    chkAutoUpdate.toggle();
    saved() = keys;
    chart.plots.clear();
    viewer.FileIni("a.ini");
    EXPECT_EQ(positions(), "6 0 0 2 0 0");
    EXPECT_EQ(window(), "03-14 16:00:00 - 03-15 16:00:00");
    EXPECT_EQ(chkNormalizzato.Value() + chkAutoUpdate.Value(), 2);
    EXPECT_TRUE(chart.normalised);
    EXPECT_EQ(chart.scale, 1);
    EXPECT_THAT(chart.colors[0], ElementsAre(0x40, 0x80, 0xFF));
    EXPECT_EQ(penne[0].colore.BackColor(), 0x00FF8040u);
    EXPECT_TRUE(chart.plots.empty());
    tmr.fire();
    EXPECT_EQ(chart.plots.size(), 1u) << "auto update draws what was restored, once";
    viewer.Terminate();
    EXPECT_EQ(saved(), keys);
}

TEST_F(TrendSettingsTest, IgnoresWhatItCannotUse) {
    const std::pair<const char*, const char*> cases[] = {
        {"cmbRange", "13"},   {"cmbRange", "-2"},  {"cmbRange", "ieri"},  {"cmbRange", "-1"},
        {"cmbVRX", "2"},      {"cmbVRX", "-2"},    {"cmbTrend1", "9"},    {"IndexScala", "4"},
        {"IndexScala", "-1"}, {"IndexScala", "x"}, {"colore1", "giallo"}, {"AutoUpdate", "si"},
        {"startDate", "ieri"}};
    startWith("a.ini");
    const auto color = penne[0].colore.BackColor();
    for (const auto& [key, value] : cases) {
        SCOPED_TRACE(std::string(key) + "=" + value);
        saved() = {{"cmbVRX", "0"}, {"cmbTrend1", "1"}};
        viewer.FileIni("a.ini");
        saved()[key] = value;
        viewer.FileIni("a.ini");
        EXPECT_EQ(positions(), "0 0 -1 1 -1 -1");
        EXPECT_EQ(cmbScala.ListIndex() + chkAutoUpdate.Value(), 0);
        EXPECT_EQ(penne[0].colore.BackColor(), color);
        EXPECT_EQ(window(), "03-14 17:45:12 - 03-14 18:45:12");
    }
}

TEST_F(TrendSettingsTest, SavesNothingThatWasNotChosen) {
    fakes::FakePropertyBag bag;
    bag.values = {{"FileIni", "a.ini"}};
    viewer.ReadProperties(bag);
    viewer.File(Config);  // run time, but never shown
    viewer.Terminate();
    EXPECT_FALSE(services.settingsFactory.files.contains("a.ini"));
    startWith("");
    EXPECT_EQ(positions(), "0 0 0 0 0 0");
    viewer.Terminate();
    EXPECT_EQ(services.settingsFactory.commits, 0);

    saved() = {{"cmbVRX", "1"}, {"cmbTrend0", "1"}};
    services.files.files.clear();
    startWith("a.ini");
    viewer.Terminate();
    EXPECT_THAT(saved(), IsSupersetOf({Pair("cmbVRX", "1"), Pair("cmbTrend0", "1")}))
        << "a folder that is not there does not wipe the choices";
}

}  // namespace
}  // namespace velt
