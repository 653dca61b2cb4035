// SPDX-License-Identifier: MIT
#include "trendviewer/clsgrafico.h"

#include "tests/errorof.h"

#include <gtest/gtest.h>

namespace velt {
namespace {

TEST(clsGraficoTest, PointsAreRoundedAndCapped) {
    struct Case {
        std::int32_t seconds;
        std::int16_t period, points;
    };
    const Case cases[] = {{3600, 60, 60},        {86400, 60, 1000},  {150, 60, 2},
                          {210, 60, 4},          {60030, 60, 1000},  {20, 60, 0},
                          {2147483647, 1, 1000}, {-32768, 1, -32768}};
    for (const auto& [seconds, period, points] : cases)
        EXPECT_EQ(PuntiGrafico(seconds, period), points) << seconds << " / " << period;
    EXPECT_EQ(errorOf([] { (void)PuntiGrafico(3600, 0); }), ErrorNumber::DivisionByZero);
    EXPECT_EQ(errorOf([] { (void)PuntiGrafico(-40000, 1); }), ErrorNumber::Overflow);
}

TEST(clsGraficoTest, TheTimeBaseGoesByTheShortestPeriodInUse) {
    struct Case {
        const char* what;
        std::int32_t seconds;
        std::array<std::int16_t, 2> periods;
        std::int16_t period, points;
        double secondsPerPoint;
    };
    const Case cases[] = {
        {"the shortest", 3600, {60, 10}, 10, 360, 10},
        {"a pen without one does not count", 3600, {0, 900}, 900, 4, 900},
        {"none detected", 86400, {0, 0}, 86, 1000, 86.4},
        {"none, in a short window", 10, {0, 0}, 1, 10, 1},
        {"none, in a window beyond 16 bits", 40'000'000, {0, 0}, 32767, 1000, 40'000},
        {"the window shorter than the period", 20, {60, 0}, 60, 1, 20},
        {"an empty window", 0, {0, 0}, 1, 1, 0},
        {"an end before the start", -999'999, {0, 0}, 1, 1, 0},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        clsGrafico chart;
        chart.Penna(0) = {.Selezionata = true, .PeriodoCampionamento = c.periods[0]};
        chart.Penna(2) = {.Selezionata = true, .PeriodoCampionamento = c.periods[1]};
        chart.Penna(3) = {.Selezionata = false, .PeriodoCampionamento = 1};
        chart.Lunghezza(c.seconds);
        EXPECT_EQ(chart.PeriodoCampionamento(), c.period);
        EXPECT_EQ(chart.PuntiGrafico(), c.points);
        EXPECT_DOUBLE_EQ(chart.SecondiPerPunto(), c.secondsPerPoint);
    }
    clsGrafico chart;
    for (const int beyond : {-1, 4})
        EXPECT_EQ(errorOf([&] { (void)chart.Penna(beyond); }), ErrorNumber::SubscriptOutOfRange);
}

}  // namespace
}  // namespace velt
