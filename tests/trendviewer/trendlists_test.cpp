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

TEST_F(TrendListsTest, ListsTheStationsWhoseDatabaseExists) {
    startWith();
    EXPECT_THAT(entries(cmbVRX), ElementsAre("RTU01", "RTU03"));
    EXPECT_EQ(cmbVRX.ListIndex(), 0);
    for (const Pen& pen : penne)
        EXPECT_THAT(entries(pen.cmbTrend), ElementsAre("Nessuno", "Livello", "Portata", "Pompa"));
    EXPECT_THAT(chosen(), ElementsAre(0, 0, 0, 0));
}

TEST_F(TrendListsTest, TheSectionGoesByThePositionInTheList) {
    services.files.files.erase("D:\\Dati\\RTU01.MDB");
    startWith();
    EXPECT_THAT(entries(cmbVRX), ElementsAre("RTU03"));
    EXPECT_EQ(penne[0].cmbTrend.List(1), "Livello") << "of section VRX0 all the same";
}

TEST_F(TrendListsTest, AStationWithoutTrendsStillOffersNone) {
    config("VRX1").clear();
    startWith();
    cmbVRX.ListIndex(1);
    EXPECT_THAT(entries(penne[3].cmbTrend), ElementsAre("Nessuno"));
}

TEST_F(TrendListsTest, HoldsEightyTrends) {
    for (int group = 0; group < 4; ++group)
        for (int i = 0; i < 20; ++i) {
            const std::string key = "G" + std::to_string(group) + "V" + std::to_string(i);
            config("VRX0")[key] = "T" + key;
        }
    startWith();
    EXPECT_EQ(penne[2].cmbTrend.ListCount(), 81);
    penne[2].cmbTrend.ListIndex(80);
    EXPECT_EQ(penne[2].cmbTrend.Text(), "TG3V19");
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

TEST_F(TrendListsTest, AChosenTrendShowsItsWords) {
    startWith();
    penne[1].cmbTrend.ListIndex(1);
    EXPECT_EQ(penne[1].lblDesc.Caption(), "Livello vasca");
    EXPECT_EQ(penne[1].lblUdm.Caption(), "m");
    penne[1].cmbTrend.ListIndex(2);
    EXPECT_EQ(penne[1].lblDesc.Caption(), "");
    EXPECT_EQ(penne[1].lblUdm.Caption(), "l/s");
    penne[1].cmbTrend.ListIndex(0);
    EXPECT_EQ(penne[1].lblUdm.Caption(), "");
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

TEST_F(TrendListsTest, ARequestMayComeBetweenShowAndTimer) {
    startWith();
    viewer.SetTrend("RTU03", "Pressione", "", "", "", start, 0);
    t.fire();
    EXPECT_EQ(cmbVRX.Text(), "RTU03");
    EXPECT_THAT(chosen(), ElementsAre(1, 0, 0, 0));
}

TEST_F(TrendListsTest, ARequestForAnUnknownStationKeepsTheCurrentOne) {
    viewer.SetTrend("rtu03", "Portata", "", "", "", start, 1);
    startWith();
    t.fire();
    EXPECT_EQ(cmbVRX.Text(), "RTU01") << "names are told apart by letter case";
    EXPECT_THAT(chosen(), ElementsAre(2, 0, 0, 0));
}

TEST_F(TrendListsTest, TheLastOfEqualNamesWins) {
    config("Common") = {{"NumeroVRX", "2"}, {"VRX0", "RTU01"}, {"VRX1", "RTU01"}};
    viewer.SetTrend("RTU01", "Pressione", "", "", "", start, 1);
    startWith();
    t.fire();
    EXPECT_EQ(cmbVRX.ListIndex(), 1);
    EXPECT_EQ(penne[0].cmbTrend.Text(), "Pressione");
}

TEST_F(TrendListsTest, ARangeOutOfTheListLeavesRangeAndEnd) {
    startWith();
    const Date end = DataFinale.Value();
    for (const std::int16_t range : {std::int16_t{13}, std::int16_t{-1}}) {
        t.Enabled(true);
        viewer.SetTrend("RTU03", "Pressione", "", "", "", start, range);
        t.fire();
        EXPECT_EQ(cmbVRX.Text(), "RTU03");
        EXPECT_EQ(TimeIniziale.Value(), start);
        EXPECT_EQ(DataFinale.Value(), end);
        EXPECT_EQ(cmbRange.ListIndex(), 0);
    }
}

TEST_F(TrendListsTest, WithoutAStationNothingIsPending) {
    viewer.SetTrend("", "Portata", "Portata", "", "", start, 7);
    startWith();
    t.fire();
    EXPECT_THAT(chosen(), ElementsAre(0, 0, 0, 0));
    EXPECT_EQ(cmbRange.ListIndex(), 0);
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
