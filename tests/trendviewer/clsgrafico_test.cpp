// SPDX-License-Identifier: MIT
#include "trendviewer/clsgrafico.h"

#include "platform/runtimeerror.h"

#include <gtest/gtest.h>

#include <limits>

namespace velt {
namespace {

int errorOf(std::int32_t seconds, std::int16_t period) {
    try {
        static_cast<void>(PuntiGrafico(seconds, period));
    } catch (const RuntimeError& error) {
        return error.Number();
    }
    return 0;
}

TEST(clsGraficoTest, PointsAreRoundedAndCapped) {
    struct Case {
        std::int32_t seconds;
        std::int16_t period;
        std::int16_t points;
    };
    const Case cases[] = {
        {3600, 60, 60},     {86400, 60, 1000}, {150, 60, 2},
        {210, 60, 4},       {60000, 60, 1000}, {60030, 60, 1000},
        {20, 60, 0},        {0, 60, 0},        {std::numeric_limits<std::int32_t>::max(), 1, 1000},
        {-32768, 1, -32768}};
    for (const Case& c : cases)
        EXPECT_EQ(PuntiGrafico(c.seconds, c.period), c.points) << c.seconds << " / " << c.period;
    EXPECT_EQ(errorOf(3600, 0), static_cast<int>(ErrorNumber::DivisionByZero));
    EXPECT_EQ(errorOf(-40000, 1), static_cast<int>(ErrorNumber::Overflow));
}

TEST(clsGraficoTest, TheTimeBaseGoesByTheShortestPeriodInUse) {
    struct Case {
        const char* what;
        std::int32_t seconds;
        std::array<std::int16_t, 4> periods;  // of the pens; the last one is not in use
        std::int16_t period;
        std::int16_t points;
        double secondsPerPoint;
    };
    const Case cases[] = {
        {"the shortest", 3600, {60, 10, 0, 1}, 10, 360, 10},
        {"a pen without one does not count", 3600, {0, 900, 0, 1}, 900, 4, 900},
        {"none detected", 86400, {0, 0, 0, 1}, 86, 1000, 86.4},
        {"none, in a short window", 10, {0, 0, 0, 0}, 1, 10, 1},
        {"none, in a window beyond 16 bits", 40'000'000, {0, 0, 0, 0}, 32767, 1000, 40'000},
        {"the window shorter than the period", 20, {60, 0, 0, 0}, 60, 1, 20},
        {"an empty window", 0, {0, 0, 0, 0}, 1, 1, 0},
    };
    for (const Case& c : cases) {
        clsGrafico chart;
        for (int pen = 0; pen < clsGrafico::Penne; ++pen) {
            chart.Penna(pen).Selezionata = pen < 3;
            chart.Penna(pen).PeriodoCampionamento = c.periods.at(static_cast<std::size_t>(pen));
        }
        chart.Lunghezza(c.seconds);
        EXPECT_EQ(chart.PeriodoCampionamento(), c.period) << c.what;
        EXPECT_EQ(chart.PuntiGrafico(), c.points) << c.what;
        EXPECT_DOUBLE_EQ(chart.SecondiPerPunto(), c.secondsPerPoint) << c.what;
        EXPECT_EQ(chart.NumeroPenneSelezionate(), 3);
    }
}

TEST(clsGraficoTest, ThereAreFourPens) {
    clsGrafico chart;
    EXPECT_NO_THROW(chart.Penna(3).Visibile = false);
    EXPECT_THROW(chart.Penna(4).Visibile = false, RuntimeError);
    EXPECT_THROW(chart.Penna(-1).Visibile = false, RuntimeError);
}

}  // namespace
}  // namespace velt
