// SPDX-License-Identifier: MIT
#include "tests/trendviewer/trendviewerfixture.h"

namespace velt {
namespace {

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
    chkAutoUpdate.toggle();
    cmdAvanti.click();
    EXPECT_EQ(chart.plots.size(), count);
    cmdAggiornaDati.click();
    EXPECT_EQ(chart.plots.size(), count + 1) << "the button always draws";
}

}  // namespace
}  // namespace velt
