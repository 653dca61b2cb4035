// SPDX-License-Identifier: MIT
#include "tests/trendviewer/trendviewerfixture.h"

#include <gmock/gmock.h>

namespace velt {
namespace {

using testing::IsEmpty;

class TrendWindowTest : public TrendViewerFixture {
protected:
    TrendWindowTest() { startWith(); }
    static Date day(int year, int month, int dayOfMonth, int hour = 0, int minute = 0,
                    int second = 0) {
        return Date::fromFields({year, month, dayOfMonth, hour, minute, second, 0});
    }
    void expectWindow(const Date& from, const Date& to, const std::string& what) {
        EXPECT_EQ(DataIniziale.Value(), from) << what;
        EXPECT_EQ(TimeIniziale.Value(), from) << what;
        EXPECT_EQ(DataFinale.Value(), to) << what;
        EXPECT_EQ(TimeFinale.Value(), to) << what;
    }
};

TEST_F(TrendWindowTest, ARangeMovesTheEndOnly) {
    const Date now = services.clock().now();
    expectWindow(now.addSeconds(-3600), now, "first show");
    setStart(day(2006, 3, 1));
    cmbRange.ListIndex(10);
    expectWindow(day(2006, 3, 1), day(2006, 4, 5), "1 Mese is 35 days");
    cmbRange.ListIndex(12);
    expectWindow(day(2006, 3, 1), day(2006, 6, 1), "3 Mesi are 92 days");
    setStart(day(2008, 2, 28));
    cmbRange.ListIndex(7);
    expectWindow(day(2008, 2, 28), day(2008, 3, 1), "over a leap day");
}

TEST_F(TrendWindowTest, TheButtonsMoveByQuartersAndHalves) {
    setStart(start);
    cmdAvanti.click();
    expectWindow(start.addSeconds(900), start.addSeconds(4500), "a quarter forward");
    cmdIndietro2.click();
    expectWindow(start.addSeconds(-900), start.addSeconds(2700), "half back");
    cmdAvanti2.click();
    cmdIndietro.click();
    expectWindow(start, start.addSeconds(3600), "and back again");
    cmbRange.ListIndex(12);
    for (int i = 0; i < 400; ++i) cmdIndietro.click();
    for (int i = 0; i < 400; ++i) cmdAvanti.click();
    expectWindow(start, start.addSeconds(7948800), "nothing gets lost, before 1899 neither");
}

TEST_F(TrendWindowTest, EditedPickersKeepTheLength) {
    setStart(day(2006, 3, 14, 17, 12, 45));
    TimeIniziale.edit(day(1999, 1, 1, 8, 30, 59));
    expectWindow(day(2006, 3, 14, 8, 30), day(2006, 3, 14, 9, 30), "start time");
    DataFinale.edit(day(2006, 3, 20, 9, 30, 0));
    expectWindow(day(2006, 3, 20, 8, 30), day(2006, 3, 20, 9, 30), "end date");
    TimeFinale.edit(day(1999, 1, 1, 0, 15, 30));
    expectWindow(day(2006, 3, 19, 23, 15), day(2006, 3, 20, 0, 15), "end time");
    DataIniziale.edit(day(2006, 2, 28, 23, 15));
    expectWindow(day(2006, 2, 28, 23, 15), day(2006, 3, 1, 0, 15), "start date");
}

TEST_F(TrendWindowTest, WithoutAutoUpdateOnlyTheButtonDraws) {
    penne[0].cmbTrend.ListIndex(1);
    cmdAvanti.click();
    cmbRange.ListIndex(3);
    TimeFinale.edit(start);
    tmr.fire();
    EXPECT_THAT(chart.plots, IsEmpty());
    cmdAggiornaDati.click();
    EXPECT_EQ(chart.plots.size(), 1u);
}

TEST_F(TrendWindowTest, WithAutoUpdateEveryChangeDrawsOnce) {
    for (Pen& pen : penne) pen.cmbTrend.ListIndex(1);
    EXPECT_TRUE(tmr.Enabled()) << "quick choices of trends merge";
    chkAutoUpdate.toggle();
    EXPECT_THAT(chart.plots, IsEmpty()) << "the click itself draws nothing";
    const std::function<void()> changes[] = {
        [&] { cmdAvanti.click(); },        [&] { cmdAvanti2.click(); },
        [&] { cmdIndietro.click(); },      [&] { cmdIndietro2.click(); },
        [&] { cmbRange.ListIndex(2); },    [&] { DataIniziale.edit(start); },
        [&] { TimeIniziale.edit(start); }, [&] { DataFinale.edit(start); },
        [&] { TimeFinale.edit(start); },   [&] { tmr.fire(); },
    };
    std::size_t count = 0;
    for (const auto& change : changes) {
        change();
        EXPECT_EQ(chart.plots.size(), ++count);
    }
    EXPECT_EQ(chart.plots.back()->start, DataIniziale.Value().milliseconds());
    EXPECT_EQ(chart.plots.back()->divisions, 6);
    tmr.fire();
    EXPECT_EQ(chart.plots.size(), count) << "the timer is a one-shot";
    chkAutoUpdate.toggle();
    cmdAvanti.click();
    EXPECT_EQ(chart.plots.size(), count);
}

}  // namespace
}  // namespace velt
