// SPDX-License-Identifier: MIT
#include "tests/trendviewer/trendviewerfixture.h"

#include "trendviewer/modcolor.h"

#include <gmock/gmock.h>

namespace velt {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using Message = fakes::FakeMessageBox::Message;

using TrendGraphTest = TrendViewerFixture;

TEST_F(TrendGraphTest, LoadsThePensInUseAndDraws) {
    database().connectionState = ado::StateClosed;
    startWith();
    database().answers[query("Livello")] =
        trendRows(start, {{0, 1.5}, {60, 2.5}, {120, Null{}}, {180, 3.5}});
    database().answers[query("Pompa")] = trendRows(start, {{0, true}, {60, false}});
    setStart(start);
    penne[0].cmbTrend.ListIndex(1);
    penne[2].cmbTrend.ListIndex(3);
    cmdAggiornaDati.click();
    EXPECT_THAT(database().log,
                ElementsAre("GetConnection D:\\Dati\\RTU01.MDB '' '' 60 3 3", "Connection.Open",
                            query("Livello") + " | 3 3 1 -1", "Recordset.Close",
                            query("Pompa") + " | 3 3 1 -1", "Recordset.Close"));
    EXPECT_THAT(pointer.shapes, ElementsAre(11, 0));
    ASSERT_EQ(chart.plots.size(), 1u);
    const ChartContents& drawn = *chart.plots[0];
    EXPECT_EQ(drawn.start, start.milliseconds());
    EXPECT_EQ(drawn.end, start.addSeconds(3600).milliseconds());
    EXPECT_EQ(drawn.divisions, 4);
    EXPECT_EQ(drawn.period, 3) << "none detected: a thousandth of the window";
    EXPECT_EQ(drawn.series[0].name, "Livello");
    EXPECT_EQ(drawn.series[0].unit, "m");
    EXPECT_EQ(drawn.series[0].curve->points.size(), 3u);
    EXPECT_EQ(drawn.series[1].name, "");
    EXPECT_EQ(drawn.series[1].samples, nullptr);
    EXPECT_TRUE(drawn.series[2].samples->steps());
    EXPECT_THAT(messages(), IsEmpty());
}

TEST_F(TrendGraphTest, AMissingTableLeavesItsPenEmpty) {
    database().missingTables = {"Livello"};
    startWith();
    showLevel();
    ASSERT_EQ(chart.plots.size(), 1u);
    EXPECT_EQ(chart.plots[0]->series[0].name, "Livello");
    EXPECT_EQ(chart.plots[0]->series[0].samples, nullptr);
    EXPECT_THAT(messages(), IsEmpty());
}

TEST_F(TrendGraphTest, AMissingDatabaseIsToldAndTheChartStays) {
    startWith();
    showLevel();
    services.files.files.clear();
    cmdAggiornaDati.click();
    EXPECT_THAT(messages(),
                ElementsAre(Message{"Il File D:\\Dati\\RTU01.MDB non esiste!", 48, "Errore"}));
    EXPECT_EQ(chart.plots.size(), 1u);
}

TEST_F(TrendGraphTest, WithoutAStationOrAPenNothingHappens) {
    startWith();
    cmdAggiornaDati.click();
    penne[0].cmbTrend.ListIndex(1);
    penne[0].cmbTrend.ListIndex(0);
    cmdAggiornaDati.click();
    EXPECT_THAT(database().log, IsEmpty());
    EXPECT_THAT(chart.plots, IsEmpty());
    EXPECT_THAT(pointer.shapes, IsEmpty());
}

TEST_F(TrendGraphTest, AnErrorIsToldInThreeTextsAndThePointerIsReset) {
    startWith();
    database().failures.emplace(query("Livello"), RuntimeError(3343, "File danneggiato"));
    showLevel();
    EXPECT_THAT(messages(),
                ElementsAre(Message{"Errore nella Procedura AggiornaGrafico\r\nErrore Numero: "
                                    "3343\r\nDescrizione: File danneggiato (tabella \"Livello\")",
                                    48, "Error"}));
    EXPECT_THAT(pointer.shapes, ElementsAre(11, 0));
    EXPECT_THAT(chart.plots, IsEmpty());

    messages().clear();
    database().failures.clear();
    database().connectFailure = RuntimeError(3045, "File in uso");
    cmdAggiornaDati.click();
    ASSERT_EQ(messages().size(), 1u);
    EXPECT_THAT(messages()[0].text, HasSubstr("Errore Numero: 3045\r\nDescrizione: File in uso"));

    messages().clear();
    database().connectFailure = RuntimeError(ErrorNumber::Cancelled);
    cmdAggiornaDati.click();
    EXPECT_THAT(messages(), IsEmpty()) << "who has cancelled knows";
    EXPECT_THAT(pointer.shapes, ElementsAre(11, 0, 11, 0, 11, 0));

    database().connectFailure.reset();
    cmdAggiornaDati.click();
    EXPECT_EQ(chart.plots.size(), 1u) << "the next refresh tries anew";
}

TEST_F(TrendGraphTest, AnEndBeforeTheStartDrawsAnEmptyChart) {
    viewer.SetTrend("RTU01", "Livello", "", "", "", services.clock().now().addSeconds(7200), 13);
    startWith();
    t.fire();
    cmdAggiornaDati.click();
    ASSERT_EQ(chart.plots.size(), 1u);
    EXPECT_TRUE(chart.plots[0]->series[0].curve->points.empty());
    EXPECT_THAT(messages(), IsEmpty());
}

TEST_F(TrendGraphTest, ASwatchHidesAndShowsItsPen) {
    startWith();
    penne[0].colore.click();
    EXPECT_TRUE(penne[0].marker.Visible()) << "a pen that is not in use";
    showLevel();
    EXPECT_TRUE(chart.visibles[0]);
    penne[0].colore.click();
    EXPECT_FALSE(penne[0].marker.Visible());
    EXPECT_EQ(chart.plots.size(), 1u) << "drawn with the next refresh";
    chkAutoUpdate.toggle();
    penne[0].colore.click();
    EXPECT_TRUE(penne[0].marker.Visible());
    penne[0].colore.click();
    EXPECT_EQ(chart.plots.size(), 3u);
    EXPECT_FALSE(chart.visibles[0]);
    EXPECT_TRUE(chart.visibles[1]);
}

TEST_F(TrendGraphTest, ADoubleClickChoosesTheColour) {
    startWith();
    const OleColor before = penne[3].colore.BackColor();
    penne[3].colore.doubleClick();
    EXPECT_EQ(dlgChart.preset, before);
    EXPECT_EQ(penne[3].colore.BackColor(), before) << "cancelled";
    dlgChart.answer = modColor::Componi(1, 2, 3);
    dlgChart.failure = RuntimeError(ErrorNumber::InvalidCall);
    penne[3].colore.doubleClick();
    EXPECT_EQ(penne[3].colore.BackColor(), before) << "failed";
    dlgChart.failure.reset();
    penne[3].colore.doubleClick();
    EXPECT_EQ(penne[3].colore.BackColor(), modColor::Componi(1, 2, 3));
    EXPECT_THAT(chart.colors[3], ElementsAre(1, 2, 3));
    EXPECT_TRUE(penne[3].marker.Visible());
    EXPECT_THAT(chart.plots, IsEmpty());
}

TEST_F(TrendGraphTest, DesignTimeTouchesNothing) {
    ambient.userMode = false;
    viewer.SetTrend("RTU01", "Livello", "", "", "", start, 0);
    startWith("a.ini");
    EXPECT_FALSE(t.Enabled());
    EXPECT_EQ(cmbVRX.ListCount(), 0);
    viewer.Terminate();
    EXPECT_FALSE(services.settingsFactory.files.contains("a.ini"));
    EXPECT_THAT(database().log, IsEmpty());
}

TEST_F(TrendGraphTest, ColoursReachTheFrames) {
    viewer.BackColor(0x0000FF);
    viewer.ForeColor(0x00FF00);
    for (const auto* frame : {&control, &frmIntervallo, &frmPenne}) {
        EXPECT_EQ(frame->backColor, 0x0000FFu);
        EXPECT_EQ(frame->foreColor, 0x00FF00u);
    }
}

TEST_F(TrendGraphTest, TerminateStopsTheTimersAndMayComeTwice) {
    startWith();
    showLevel();
    EXPECT_TRUE(tmr.Enabled());
    viewer.Terminate();
    viewer.Terminate();
    EXPECT_FALSE(t.Enabled());
    EXPECT_FALSE(tmr.Enabled());
    cmdAggiornaDati.click();
    EXPECT_EQ(chart.plots.size(), 2u) << "an operator who goes on";
}

}  // namespace
}  // namespace velt
