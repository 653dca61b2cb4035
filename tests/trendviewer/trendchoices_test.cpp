// SPDX-License-Identifier: MIT
#include "tests/trendviewer/trendviewerfixture.h"

#include <gmock/gmock.h>

namespace velt {
namespace {

using testing::ElementsAre;

class TrendWindowTest : public TrendViewerFixture {
protected:
    TrendWindowTest() { startWith(); }
    static Date at(const char* text) { return *fromIsoText(std::string("2006-") + text); }
};

TEST_F(TrendWindowTest, TheEndFollowsTheStartAndTheStartAnEditedEnd) {
    struct Step {
        std::function<void()> act;
        const char* window;
    };
    const Step steps[] = {
        {[] {}, "03-14 17:45:12 - 03-14 18:45:12"},
        {[&] { setStart(start); }, "03-14 10:00:00 - 03-14 11:00:00"},
        {[&] { cmdAvanti.click(); }, "03-14 10:15:00 - 03-14 11:15:00"},
        {[&] { cmdIndietro2.click(); }, "03-14 09:45:00 - 03-14 10:45:00"},
        {[&] { cmdAvanti2.click(); }, "03-14 10:15:00 - 03-14 11:15:00"},
        {[&] { cmdIndietro.click(); }, "03-14 10:00:00 - 03-14 11:00:00"},
        {[&] { setStart(at("03-14 17:12:45")); }, "03-14 17:12:45 - 03-14 18:12:45"},
        {[&] { TimeIniziale.edit(at("01-01 08:30:59")); }, "03-14 08:30:00 - 03-14 09:30:00"},
        {[&] { DataFinale.edit(at("03-20 09:30:00")); }, "03-20 08:30:00 - 03-20 09:30:00"},
        {[&] { TimeFinale.edit(at("01-01 00:15:30")); }, "03-19 23:15:00 - 03-20 00:15:00"},
        {[&] { setStart(at("03-01 00:00:00")); }, "03-01 00:00:00 - 03-01 01:00:00"},
        {[&] { cmbRange.ListIndex(10); }, "03-01 00:00:00 - 04-05 00:00:00"},
        {[&] { cmbRange.ListIndex(12); }, "03-01 00:00:00 - 06-01 00:00:00"},
    };
    for (const Step& step : steps) {
        step.act();
        EXPECT_EQ(window(), step.window);
    }
    for (int i = 0; i < 400; ++i) cmdIndietro.click();
    for (int i = 0; i < 400; ++i) cmdAvanti.click();
    EXPECT_EQ(window(), "03-01 00:00:00 - 06-01 00:00:00")
        << "nothing gets lost, before 1899 neither";
}

TEST_F(TrendWindowTest, OnlyWithAutoUpdateEveryChangeDrawsOnce) {
    for (Pen& pen : penne) pen.cmbTrend.ListIndex(1);
    EXPECT_TRUE(tmr.Enabled()) << "quick choices of trends merge";
    const std::function<void()> changes[] = {
        [&] { tmr.fire(); },
        [&] { cmdAvanti.click(); },
        [&] { cmbRange.ListIndex(2); },
        [&] { DataIniziale.edit(start); },
        [&] { TimeIniziale.edit(start); },
        [&] { DataFinale.edit(start); },
        [&] { TimeFinale.edit(start); },
    };
    for (const auto& change : changes) change();
    EXPECT_TRUE(chart.plots.empty());
    EXPECT_FALSE(tmr.Enabled()) << "a one-shot";
    penne[0].cmbTrend.ListIndex(1);
    chkAutoUpdate.toggle();
    std::size_t count = 0;
    for (const auto& change : changes) {
        EXPECT_EQ(chart.plots.size(), count++);
        change();
    }
    EXPECT_EQ(chart.plots.back()->start, DataIniziale.Value().milliseconds());
    EXPECT_EQ(chart.plots.back()->divisions, 6);
}

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
    EXPECT_TRUE(chart.plots.empty());
    tmr.fire();
    EXPECT_EQ(chart.plots.size(), 1u) << "auto update draws what was restored, once";
    viewer.Terminate();
    EXPECT_EQ(saved(), keys);
}

TEST_F(TrendSettingsTest, IgnoresWhatItCannotUse) {
    const std::pair<const char*, const char*> cases[] = {
        {"cmbRange", "13"},    {"cmbRange", "-1"},   {"cmbRange", "-2"},   {"cmbVRX", "2"},
        {"cmbTrend1", "9"},    {"IndexScala", "4"},  {"IndexScala", "-1"}, {"IndexScala", "x"},
        {"colore1", "giallo"}, {"AutoUpdate", "si"}, {"startDate", "ieri"}};
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

using TrendListsTest = TrendViewerFixture;

TEST_F(TrendListsTest, ListsTheStationsWhoseDatabaseExistsAndTheirTrends) {
    startWith();
    EXPECT_THAT(entries(cmbVRX), ElementsAre("RTU01", "RTU03"));
    for (const Pen& pen : penne)
        EXPECT_THAT(entries(pen.cmbTrend), ElementsAre("Nessuno", "Livello", "Portata", "Pompa"));
    EXPECT_EQ(positions(), "0 0 0 0 0 0");
    const auto words = [&](int trend) {
        penne[1].cmbTrend.ListIndex(trend);
        return penne[1].lblDesc.Caption() + "|" + penne[1].lblUdm.Caption();
    };
    EXPECT_THAT((std::vector{words(1), words(2), words(3), words(0)}),
                ElementsAre("Livello vasca|m", "|l/s", "Marcia|", "|"));

    config("VRX1").clear();
    cmbVRX.ListIndex(1);
    EXPECT_THAT(entries(penne[3].cmbTrend), ElementsAre("Nessuno")) << "also without any trend";

    for (int i = 0; i < 80; ++i)
        config("VRX0")["G" + std::to_string(i / 20) + "V" + std::to_string(i % 20)] =
            "T" + std::to_string(i);
    services.files.files.erase("D:\\Dati\\RTU01.MDB");
    viewer.File(Config);
    EXPECT_THAT(entries(cmbVRX), ElementsAre("RTU03"));
    EXPECT_EQ(penne[2].cmbTrend.ListCount(), 81) << "of section VRX0: it goes by the position";
    EXPECT_EQ(penne[2].cmbTrend.List(80), "T79");
    for (const char* count : {"molti", "-1", "1e9", "", "32768", "3", "32767"}) {
        config("Common")["NumeroVRX"] = count;
        viewer.File(Config);
        const int stations = std::string(count) == "32767" ? 1 : 0;
        EXPECT_EQ(cmbVRX.ListCount(), stations) << count;
        EXPECT_EQ(penne[0].cmbTrend.ListCount(), stations * 81) << count;
    }
}

TEST_F(TrendListsTest, AnotherStationOrFileFillsTheListsAnew) {
    startWith();
    penne[0].cmbTrend.ListIndex(1);
    penne[1].cmbTrend.ListIndex(3);
    cmbVRX.ListIndex(1);
    EXPECT_EQ(positions(), "0 1 1 0 0 0") << "as far as the list goes";
    EXPECT_EQ(penne[0].cmbTrend.Text(), "Pressione");
    cmbVRX.ListIndex(-1);
    EXPECT_EQ(penne[0].cmbTrend.ListCount(), 0);
    viewer.File(Config);
    EXPECT_EQ(positions(), "0 0 0 0 0 0");
    EXPECT_EQ(cmbVRX.ListCount(), 2) << "not twice";
    penne[0].cmbTrend.ListIndex(1);
    viewer.File("");
    EXPECT_EQ(viewer.CartellaDownload(), "");
    EXPECT_EQ(positions(), "0 -1 -1 -1 -1 -1");
    EXPECT_EQ(penne[0].lblDesc.Caption(), "");
    EXPECT_EQ(refresh(), "") << "no station, no pen in use";
}

TEST_F(TrendListsTest, ARequestIsAppliedOnceByTheTimer) {
    viewer.SetTrend("RTU01", "Portata", "assente", "", "Livello", start, 5);
    startWith();
    EXPECT_EQ(positions(), "0 0 0 0 0 0");
    EXPECT_TRUE(t.Enabled());
    t.fire();
    EXPECT_FALSE(t.Enabled());
    EXPECT_EQ(positions(), "5 0 2 0 0 1");
    EXPECT_EQ(window(), "03-14 10:00:00 - 03-14 22:00:00");
    viewer.SetTrend("RTU03", "Pressione", "", "", "", start, 0);
    t.fire();
    viewer.Show();
    t.fire();
    EXPECT_EQ(cmbVRX.Text(), "RTU01") << "a request that comes later stays unapplied";
}

TEST_F(TrendListsTest, WhatARequestSelects) {
    // Station, trends, range; then the positions, and what the pickers show.
    struct Case {
        const char* vrx;
        std::array<std::string, 4> trends;
        std::int16_t range;
        const char* positions;
        const char* window;
    };
    const Case cases[] = {
        {"RTU03", {"Pressione"}, 0, "0 1 1 0 0 0", "03-14 10:00:00 - 03-14 11:00:00"},
        {"rtu03", {"", "Portata"}, 1, "1 0 0 2 0 0", "03-14 10:00:00 - 03-14 12:00:00"},
        {"RTU01", {"x", "livello"}, 12, "12 2 0 0 0 0", "03-14 10:00:00 - 06-14 10:00:00"},
        {"RTU03", {"", "", "Pressione"}, 13, "2 1 0 0 1 0", "03-14 10:00:00 - 03-14 12:00:00"},
        {"RTU03", {"", "", "", "Pressione"}, -1, "2 1 0 0 0 1", "03-14 10:00:00 - 03-14 12:00:00"},
        {"", {"Portata", "Portata"}, 7, "2 0 0 0 0 0", "03-14 09:00:00 - 03-14 12:00:00"},
    };
    startWith();
    cmbVRX.AddItem("RTU01");  // the last of equal names wins
    for (const Case& c : cases) {
        SCOPED_TRACE(c.positions);
        cmbVRX.ListIndex(0);
        for (Pen& pen : penne) pen.cmbTrend.ListIndex(0);
        cmbRange.ListIndex(2);
        setStart(start.addSeconds(-3600));
        t.Enabled(true);
        viewer.SetTrend(c.vrx, c.trends[0], c.trends[1], c.trends[2], c.trends[3], start, c.range);
        t.fire();
        EXPECT_EQ(positions(), c.positions);
        EXPECT_EQ(window(), c.window);
    }
    config("Common").clear();
    viewer.File(Config);
    t.Enabled(true);
    viewer.SetTrend("RTU01", "Portata", "", "", "", start, 1);
    t.fire();
    EXPECT_EQ(DataIniziale.Value(), start) << "also in an empty plant";
    cmbVRX.AddItem("RTU01");
    cmbVRX.ListIndex(0);
    EXPECT_EQ(penne[0].cmbTrend.ListCount(), 4) << "a choice by the operator counts again";
}

}  // namespace
}  // namespace velt
