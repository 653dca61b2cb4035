// SPDX-License-Identifier: MIT
#include "tests/trendviewer/trendviewerfixture.h"

#include <gmock/gmock.h>

namespace velt {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

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
    EXPECT_THAT(entries(penne[0].cmbTrend), IsEmpty());
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
