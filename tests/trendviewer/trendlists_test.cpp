// SPDX-License-Identifier: MIT
#include "tests/trendviewer/trendviewerfixture.h"

#include <gmock/gmock.h>

namespace velt {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class TrendListsTest : public TrendViewerFixture {
protected:
    fakes::FakeSettingsFactory::Keys& config(const std::string& section) {
        return services.settingsFactory.files[Config][section];
    }
    std::vector<int> chosen() const {
        std::vector<int> positions;
        for (const Pen& pen : penne) positions.push_back(pen.cmbTrend.ListIndex());
        return positions;
    }
};

TEST_F(TrendListsTest, ListsTheStationsWhoseDatabaseExistsAndTheirTrends) {
    startWith();
    EXPECT_THAT(entries(cmbVRX), ElementsAre("RTU01", "RTU03"));
    EXPECT_EQ(cmbVRX.ListIndex(), 0);
    for (const Pen& pen : penne)
        EXPECT_THAT(entries(pen.cmbTrend), ElementsAre("Nessuno", "Livello", "Portata", "Pompa"));
    EXPECT_THAT(chosen(), ElementsAre(0, 0, 0, 0));
    const std::vector<std::vector<std::string>> words = {
        {"", ""}, {"Livello vasca", "m"}, {"", "l/s"}, {"Marcia", ""}, {"", ""}};
    for (int i = 1; i <= 4; ++i) {
        penne[1].cmbTrend.ListIndex(i % 4);
        EXPECT_EQ(penne[1].lblDesc.Caption(), words[std::size_t(i)][0]) << i;
        EXPECT_EQ(penne[1].lblUdm.Caption(), words[std::size_t(i)][1]) << i;
    }

    config("VRX1").clear();
    cmbVRX.ListIndex(1);
    EXPECT_THAT(entries(penne[3].cmbTrend), ElementsAre("Nessuno")) << "also without any trend";

    for (int group = 0; group < 4; ++group)
        for (int i = 0; i < 20; ++i) {
            const std::string key = "G" + std::to_string(group) + "V" + std::to_string(i);
            config("VRX0")[key] = "T" + key;
        }
    services.files.files.erase("D:\\Dati\\RTU01.MDB");
    viewer.File(Config);
    EXPECT_THAT(entries(cmbVRX), ElementsAre("RTU03"));
    EXPECT_EQ(penne[2].cmbTrend.ListCount(), 81) << "of section VRX0: it goes by the position";
    EXPECT_EQ(penne[2].cmbTrend.List(80), "TG3V19");
}

TEST_F(TrendListsTest, ACountThatIsNoCountMeansNoStation) {
    for (const char* count : {"molti", "-1", "99999", "1e9", ""}) {
        config("Common")["NumeroVRX"] = count;
        viewer.File(Config);
        EXPECT_THAT(entries(cmbVRX), IsEmpty()) << count;
        EXPECT_THAT(entries(penne[0].cmbTrend), IsEmpty()) << count;
    }
    config("Common")["NumeroVRX"] = "32767";
    viewer.File(Config);
    EXPECT_THAT(entries(cmbVRX), ElementsAre("RTU01", "RTU03"));
}

TEST_F(TrendListsTest, AnotherFileFillsTheListsAnew) {
    startWith();
    viewer.File(Config);
    EXPECT_EQ(cmbVRX.ListCount(), 2) << "not twice";
    penne[0].cmbTrend.ListIndex(1);
    viewer.File("");
    EXPECT_EQ(viewer.CartellaDownload(), "");
    EXPECT_THAT(entries(cmbVRX), IsEmpty());
    EXPECT_THAT(entries(penne[0].cmbTrend), IsEmpty());
    EXPECT_EQ(penne[0].lblDesc.Caption(), "");
    cmdAggiornaDati.click();
    EXPECT_THAT(database().log, IsEmpty()) << "no station, no pen in use";
}

TEST_F(TrendListsTest, AnotherStationKeepsThePositionsThatItHas) {
    startWith();
    penne[0].cmbTrend.ListIndex(1);
    penne[1].cmbTrend.ListIndex(3);
    cmbVRX.ListIndex(1);
    EXPECT_THAT(chosen(), ElementsAre(1, 0, 0, 0));
    EXPECT_EQ(penne[0].cmbTrend.Text(), "Pressione");
    cmbVRX.ListIndex(-1);
    EXPECT_THAT(entries(penne[0].cmbTrend), IsEmpty());
    cmbVRX.ListIndex(0);
    EXPECT_THAT(chosen(), ElementsAre(0, 0, 0, 0));
}

TEST_F(TrendListsTest, ARequestWaitsForTheTimer) {
    viewer.SetTrend("RTU01", "Portata", "assente", "", "Livello", start, 5);
    startWith();
    EXPECT_THAT(chosen(), ElementsAre(0, 0, 0, 0));
    EXPECT_TRUE(t.Enabled());
    t.fire();
    EXPECT_FALSE(t.Enabled());
    EXPECT_THAT(chosen(), ElementsAre(2, 0, 0, 1));
    EXPECT_EQ(DataIniziale.Value(), start);
    EXPECT_EQ(TimeFinale.Value(), start.addSeconds(43200));
    EXPECT_EQ(cmbRange.ListIndex(), 5);

    viewer.SetTrend("RTU03", "Pressione", "", "", "", start, 0);
    t.fire();
    viewer.Show();
    t.fire();
    EXPECT_EQ(cmbVRX.Text(), "RTU01") << "a request that comes later stays unapplied";
}

TEST_F(TrendListsTest, WhatARequestSelects) {
    struct Case {
        const char* what;
        const char* vrx;
        std::array<const char*, 4> trends;
        std::int16_t range;
        const char* station;
        std::vector<int> positions;
        int rangeAfter;
    };
    const Case cases[] = {
        {"another station", "RTU03", {"Pressione", "", "", ""}, 0, "RTU03", {1, 0, 0, 0}, 0},
        {"an unknown station", "rtu03", {"", "Portata", "", ""}, 1, "RTU01", {0, 2, 0, 0}, 1},
        {"unknown trends", "RTU01", {"x", "livello", "", "Livello"}, 12, "RTU01", {0, 0, 0, 1}, 12},
        {"a range too high", "RTU03", {"", "", "Pressione", ""}, 13, "RTU03", {0, 0, 1, 0}, 2},
        {"a range too low", "RTU03", {"", "", "", "Pressione"}, -1, "RTU03", {0, 0, 0, 1}, 2},
        {"no station", "", {"Portata", "Portata", "", ""}, 7, "RTU01", {0, 0, 0, 0}, 2},
    };
    startWith();
    for (const Case& c : cases) {
        cmbVRX.ListIndex(0);
        for (Pen& pen : penne) pen.cmbTrend.ListIndex(0);
        cmbRange.ListIndex(2);
        setStart(start.addSeconds(-60));
        const Date end = DataFinale.Value();
        t.Enabled(true);
        viewer.SetTrend(c.vrx, c.trends[0], c.trends[1], c.trends[2], c.trends[3], start, c.range);
        t.fire();
        EXPECT_EQ(cmbVRX.Text(), c.station) << c.what;
        EXPECT_EQ(chosen(), c.positions) << c.what;
        EXPECT_EQ(cmbRange.ListIndex(), c.rangeAfter) << c.what;
        EXPECT_EQ(TimeIniziale.Value() == start, *c.vrx != 0) << c.what;
        EXPECT_EQ(DataFinale.Value() == end, c.range != c.rangeAfter) << c.what;
    }
}

TEST_F(TrendListsTest, TheLastOfEqualNamesWins) {
    config("Common") = {{"NumeroVRX", "2"}, {"VRX0", "RTU01"}, {"VRX1", "RTU01"}};
    viewer.SetTrend("RTU01", "Pressione", "", "", "", start, 1);
    startWith();
    t.fire();
    EXPECT_EQ(cmbVRX.ListIndex(), 1);
    EXPECT_EQ(penne[0].cmbTrend.Text(), "Pressione");
}

TEST_F(TrendListsTest, ARequestInAnEmptyPlantIsNoFault) {
    config("Common").clear();
    viewer.SetTrend("RTU01", "Portata", "", "", "", start, 1);
    startWith();
    t.fire();
    EXPECT_EQ(DataIniziale.Value(), start);
    cmbVRX.AddItem("RTU01");
    cmbVRX.ListIndex(0);
    EXPECT_EQ(penne[0].cmbTrend.ListCount(), 4) << "a choice by the operator counts again";
}

}  // namespace
}  // namespace velt
