// SPDX-License-Identifier: MIT
#include "tests/errorof.h"
#include "tests/trendviewer/trendviewerfixture.h"
#include "trendviewer/modcolor.h"

#include <gmock/gmock.h>

namespace velt {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class TrendGraphTest : public TrendViewerFixture {
protected:
    /// The hour from `start`, with a trend on a pen.
    void choose(std::size_t pen, int trend) {
        setStart(start);
        penne[pen].cmbTrend.ListIndex(trend);
    }
    /// The newest drawing: its pens, each with what is in view.
    std::string drawn() const {
        std::string text;
        for (const ChartSeries& series : chart.plots.back()->series) {
            text += series.name + "[" + series.unit + "]";
            if (series.curve) text += std::to_string(series.curve->statistics.count);
            text += " ";
        }
        return text;
    }
};

TEST_F(TrendGraphTest, LoadsThePensInUseAndDraws) {
    database().connectionState = ado::StateClosed;
    database().missingTables = {"Portata"};
    startWith();
    EXPECT_EQ(refresh(), "");
    EXPECT_THAT(database().log, IsEmpty()) << "no pen in use";
    database().answers[query("Livello")] =
        trendRows(start, {{0, 1.5}, {60, 2.5}, {120, Null{}}, {180, 3.5}});
    database().answers[query("Pompa")] = trendRows(start, {{0, true}, {60, false}});
    choose(0, 1);
    choose(2, 3);
    choose(3, 2);
    EXPECT_EQ(refresh(), "");
    EXPECT_THAT(database().log,
                ElementsAre("GetConnection D:\\Dati\\RTU01.MDB '' '' 60 3 3", "Connection.Open",
                            "SELECT Data, Valore FROM Livello WHERE Data in 3351492000..3351495600 "
                            "ORDER BY Data | 3 3 1 -1",
                            "Recordset.Close", query("Pompa") + " | 3 3 1 -1", "Recordset.Close"));
    EXPECT_THAT(pointer.shapes, ElementsAre(11, 0));
    EXPECT_EQ(drawn(), "Livello[m]3 [] Pompa[]2 Portata[l/s] ") << "a missing table: an empty pen";
    const ChartContents& contents = *chart.plots[0];
    EXPECT_EQ(contents.title, "RTU01");
    EXPECT_EQ(contents.start, start.milliseconds());
    EXPECT_EQ(contents.end, start.addSeconds(3600).milliseconds());
    EXPECT_EQ(contents.divisions, 4);
    EXPECT_EQ(contents.period, 3) << "none detected: a thousandth of the window";
    EXPECT_TRUE(contents.series[2].samples->steps());
}

TEST_F(TrendGraphTest, WhatGoesWrongIsToldAndTheChartStays) {
    config("VRX0")["G3V0"] = "Due Parole";
    startWith();
    choose(0, 1);
    const std::string error = "Error48Errore nella Procedura AggiornaGrafico\r\nErrore Numero: ";
    database().failures.emplace(query("Livello"), RuntimeError(3343, "File danneggiato"));
    EXPECT_EQ(refresh(), error + "3343\r\nDescrizione: File danneggiato (tabella \"Livello\")");
    database().connectFailure = RuntimeError(3045, "File in uso");
    EXPECT_EQ(refresh(), error + "3045\r\nDescrizione: File in uso");
    database().connectFailure.reset();
    database().failures.at(query("Livello")) = RuntimeError(ErrorNumber::Cancelled);
    EXPECT_EQ(refresh(), "") << "who has cancelled knows";
    EXPECT_THAT(pointer.shapes, ElementsAre(11, 0, 11, 0, 11, 0));
    services.files.files.clear();
    EXPECT_EQ(refresh(), "Errore48Il File D:\\Dati\\RTU01.MDB non esiste!");
    EXPECT_THAT(chart.plots, IsEmpty());

    services.files.files = {"D:\\Dati\\RTU01.MDB"};
    database().failures.clear();
    EXPECT_EQ(refresh(), "");
    EXPECT_EQ(drawn(), "Livello[m]0 [] [] [] ") << "the next refresh tries anew";
    choose(0, 3);
    EXPECT_EQ(refresh(), error +
                             "3075\r\nDescrizione: Il nome di una tabella di trend non può "
                             "contenere spazi (tabella \"Due Parole\")")
        << "a blank would make two names of it";
}

TEST_F(TrendGraphTest, ASwatchHidesAndShowsItsPen) {
    startWith();
    penne[0].colore.click();
    EXPECT_TRUE(penne[0].marker.Visible()) << "a pen that is not in use";
    choose(0, 1);
    refresh();
    EXPECT_TRUE(chart.visibles[0]);
    penne[0].colore.click();
    EXPECT_FALSE(penne[0].marker.Visible());
    EXPECT_EQ(chart.plots.size(), 1u) << "drawn with the next refresh";
    chkAutoUpdate.toggle();
    penne[0].colore.click();
    EXPECT_TRUE(penne[0].marker.Visible());
    penne[0].colore.click();
    EXPECT_EQ(chart.plots.size(), 3u);
    EXPECT_THAT(chart.visibles, ElementsAre(false, true, true, true));
}

TEST_F(TrendGraphTest, ADoubleClickChoosesTheColour) {
    startWith();
    const OleColor before = penne[3].colore.BackColor();
    const auto shown = [&] {
        penne[3].colore.doubleClick();
        return penne[3].colore.BackColor();
    };
    EXPECT_EQ(shown(), before) << "cancelled";
    EXPECT_EQ(dlgChart.preset, before);
    dlgChart.answer = modColor::Componi(1, 2, 3);
    EXPECT_EQ(shown(), dlgChart.answer);
    EXPECT_THAT(chart.colors[3], ElementsAre(1, 2, 3));
    EXPECT_THAT(chart.plots, IsEmpty());
}

TEST_F(TrendGraphTest, DesignTimeTouchesNothingAndTerminateMayComeTwice) {
    ambient.userMode = false;
    viewer.SetTrend("RTU01", "Livello", "", "", "", start, 0);
    startWith("a.ini");
    viewer.BackColor(0x0000FF);
    viewer.ForeColor(0x00FF00);
    for (const auto* frame : {&control, &frmIntervallo, &frmPenne})
        EXPECT_EQ(frame->backColor + frame->foreColor, 0x00FFFFu);
    viewer.Terminate();
    EXPECT_FALSE(t.Enabled());
    EXPECT_EQ(cmbVRX.ListCount(), 0);
    EXPECT_FALSE(services.settingsFactory.files.contains("a.ini"));

    ambient.userMode = true;
    startWith();
    choose(0, 1);
    EXPECT_TRUE(t.Enabled() && tmr.Enabled());
    viewer.Terminate();
    viewer.Terminate();
    EXPECT_FALSE(t.Enabled() || tmr.Enabled());
    EXPECT_EQ(refresh(), "");
    EXPECT_EQ(chart.plots.size(), 1u) << "an operator who goes on";
}

TEST(LoadingTest, AWindowTooLongAndOneThatIsStoppedDrawNothing) {
    TrendLoading loading;
    loading.start = Date::fromFields({1900, 1, 1});
    loading.end = Date::fromFields({2000, 1, 1});
    EXPECT_EQ(errorOf([&] { loading.run(); }), ErrorNumber::Overflow) << "beyond 32 bits";
    loading.end = loading.start.addSeconds(60);
    loading.rows[0] = trendRows(loading.start, {{0, 1.0}});
    std::stop_source source;
    source.request_stop();
    loading.run(source.get_token());
    EXPECT_EQ(loading.contents, nullptr);
    loading.run();
    EXPECT_NE(loading.contents, nullptr);
}

}  // namespace
}  // namespace velt
