// SPDX-License-Identifier: MIT
// The arithmetic behind the chart.
#include "platform/date.h"
#include "tests/errorof.h"
#include "trendviewer/clsgrafico.h"
#include "trendviewer/clstrasflineare.h"
#include "trendviewer/intervalli.h"
#include "trendviewer/modcolor.h"
#include "trendviewer/timeaxis.h"
#include "trendviewer/valueaxis.h"

#include <gtest/gtest.h>

#include <limits>

namespace velt {
namespace {

TEST(clsGraficoTest, PointsAreRoundedAndCapped) {
    struct Case {
        std::int32_t seconds;
        std::int16_t period, points;
    };
    const Case cases[] = {
        {3600, 60, 60}, {86400, 60, 1000}, {150, 60, 2}, {210, 60, 4}, {-32768, 1, -32768}};
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
        {"none, in a window beyond 16 bits", 40'000'000, {0, 0}, 32767, 1000, 40'000},
        {"the window shorter than the period", 20, {60, 0}, 60, 1, 20},
        {"an empty window", 0, {0, 0}, 1, 1, 0},
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

TEST(CalcolaPeriodoCampTest, FindsTheNewestRegularSpacing) {
    struct Case {
        const char* what;
        std::vector<std::pair<int, double>> spacings;  // how often, and seconds
        int period;
    };
    const Case cases[] = {
        {"ten samples are too few", {{9, 60}}, 0},
        {"eleven will do", {{10, 60}}, 60},
        {"the newest seven decide", {{20, 60}, {6, 10}}, 10},
        {"six of them do not", {{20, 60}, {5, 10}}, 60},
        {"the longest that fits 16 bits", {{10, 32767}}, 32767},
        {"one that does not", {{10, 32768}}, 0},
        {"equal times have no period", {{20, 60}, {6, 0}}, 0},
        {"whole seconds count", {{1, 59.8}, {9, 60.1}}, 60},
    };
    for (const Case& c : cases) {
        std::vector<ChartTime> times = {3'351'000'000'000};
        for (const auto& [count, seconds] : c.spacings)
            for (int i = 0; i < count; ++i)
                times.push_back(times.back() + static_cast<ChartTime>(seconds * 1000));
        EXPECT_EQ(CalcolaPeriodoCamp(times), c.period) << c.what;
    }
    EXPECT_EQ(CalcolaPeriodoCamp({}), 0);
}

TEST(clsTrasfLineareTest, EachChangeOfARangeRecomputes) {
    clsTrasfLineare transform;
    EXPECT_EQ(transform.fx(50), 0) << "a new one";
    transform.SetMinMax(0, 10, 100, 0);
    EXPECT_EQ(transform.fx(3), 70);
    transform.Xmin(5);
    EXPECT_EQ(transform.fx(5), 100);
    transform.Xmax(55);
    EXPECT_EQ(transform.fx(55), 0);
    transform.Ymin(50);
    EXPECT_EQ(transform.fx(5), 50);
    transform.Ymax(150);
    EXPECT_EQ(transform.fx(30), 100);
    transform.M(3);
    transform.Q(-1);
    transform.Xmin(55);
    EXPECT_EQ(transform.fx(3), 8) << "set directly; an empty range keeps the mapping";
    transform.Xmin(5);
    EXPECT_EQ(transform.M(), 2) << "until the next change of a range";

    constexpr double Largest = std::numeric_limits<double>::max();
    EXPECT_EQ(errorOf([&] { transform.SetMinMax(0, 1, -Largest, Largest); }),
              ErrorNumber::Overflow);
    EXPECT_EQ(transform.M(), 2) << "the mapping stays";
    transform.SetMinMax(-1e10, 0, 0, 1e300);
    EXPECT_EQ(errorOf([&] { (void)transform.fx(1e20); }), ErrorNumber::Overflow);
}

TEST(modColorTest, ComposesSplitsAndReads) {
    EXPECT_EQ(modColor::Componi(255, 0, 0), 255u);
    EXPECT_EQ(modColor::Componi(0, 0, 255), 16711680u);
    EXPECT_EQ(modColor::text(0x80FF8040), "#4080FF") << "bits beyond the channels do not count";
    using Case = std::pair<const char*, std::optional<OleColor>>;
    for (const auto& [text, color] : {Case{"#4080ff", 0x00FF8040},
                                      {"#00000A", 0x0A0000u},
                                      {"16711680", 16711680u},
                                      {"", std::nullopt},
                                      {"#4080F", std::nullopt},
                                      {"#4080FG", std::nullopt},
                                      {"16777216", std::nullopt},
                                      {"-1", std::nullopt},
                                      {"99999999999", std::nullopt}})
        EXPECT_EQ(modColor::fromText(text), color) << text;
}

TEST(IntervalliTest, LengthsAndDivisionsGoByThePosition) {
    std::string table;
    for (const char* text : testiIntervallo()) table.append(text).append("|");
    for (std::int16_t i = -1; i <= 13; ++i)
        table += std::to_string(SecondiIntervallo(i)) + " " +
                 std::to_string(DivisioniIntervallo(i)) + "|";
    EXPECT_EQ(table,
              "1 Ora|2 Ore|3 Ore|4 Ore|6 Ore|12 Ore|1 Giorno|2 Giorni|4 Giorni|1 Settimana|1 Mese|"
              "2 Mesi|3 Mesi|3600 4|3600 4|7200 4|10800 6|14400 4|21600 6|43200 6|86400 6|"
              "172800 4|345600 4|604800 7|3024000 5|5443200 9|7948800 6|3600 4|");
}

ChartTime at(const Date::Fields& fields) { return Date::fromFields(fields).milliseconds(); }

TEST(TimeAxisTest, HasALineForEachDivisionAndItsEndAndWordsForMoments) {
    const Locale locale;
    struct Case {
        Date::Fields start;
        double seconds;
        int divisions;
        const char* labels;
    };
    const Case cases[] = {
        {{2006, 3, 14, 10}, 3600, 2, "14/03/2006 10.00|14/03/2006 10.30|14/03/2006 11.00"},
        {{2008, 2, 29}, 86400, 1, "29/02/2008 00.00|01/03/2008 00.00"},
        {{2006, 3, 14, 10}, 45, 1, "14/03/2006 10.00.00|14/03/2006 10.00.45"},
        {{1899, 12, 29, 18}, 43200, 1, "29/12/1899 18.00|30/12/1899 06.00"},
        {{2006, 3, 14}, -3600, 0, "14/03/2006 00.00|13/03/2006 23.00"},
        {{9999, 12, 31}, 86400, 1, "31/12/9999 00.00|#2958466 00.00"},
    };
    for (const Case& c : cases) {
        ChartContents contents;
        contents.start = at(c.start);
        contents.end = contents.start + static_cast<ChartTime>(c.seconds * 1000);
        contents.divisions = c.divisions;
        std::string labels;
        for (const TimeTick& tick : timeAxis(contents, locale))
            labels += (labels.empty() ? "" : "|") + tick.day + " " + tick.clock;
        EXPECT_EQ(labels, c.labels);
    }
    EXPECT_EQ(timeText(at({2006, 3, 14, 7, 30, 5, 0}), locale), "14/03/2006 07.30.05");
    EXPECT_EQ(timeText(at({2006, 3, 14, 0, 0, 0, 40}), locale), "14/03/2006 00.00.00,040");
    EXPECT_EQ(timeText(at({1899, 12, 29, 23, 59, 59, 0}), locale), "29/12/1899 23.59.59");
    EXPECT_EQ(durationText(3'723'000, locale), "01.02.03");
    EXPECT_EQ(durationText(-(86'400'000LL * 3 + 500), locale), "-3 g 00.00.00,500");
}

struct Range {
    double low;
    double high;
    const char* unit = "m";
};

/// The axis of series that have the given ranges.
ValueAxis axisOf(const std::vector<Range>& ranges, const ScaleChoice& choice = {}) {
    ChartContents contents;
    for (std::size_t i = 0; i < ranges.size(); ++i) {
        auto curve = std::make_shared<ChartCurve>();
        curve->statistics = {.count = 2, .minimum = ranges[i].low, .maximum = ranges[i].high};
        contents.series[i].curve = curve;
        contents.series[i].unit = ranges[i].unit;
    }
    return valueAxis(contents, choice, Locale::italian());
}

/// Whose labels they are, the labels, their unit.
std::string labels(const ValueAxis& axis) {
    std::string text = axis.series < 0 ? "" : std::to_string(axis.series) + ":";
    for (const ValueTick& tick : axis.ticks) text += tick.text + "|";
    return text + axis.unit;
}

TEST(ValueAxisTest, OneAxisWithRoundedBounds) {
    struct Case {
        double low, high;
        const char* labels = nullptr;  // any
    };
    const Case cases[] = {
        {0.3, 9.7, "0|2|4|6|8|10|m"},
        {-1.5, 1.2, "-1,5|-1,0|-0,5|0,0|0,5|1,0|1,5|m"},
        {5, 5, "4,4|4,6|4,8|5,0|5,2|5,4|5,6|m"},
        {0, 0, "-1,0|-0,5|0,0|0,5|1,0|m"},
        {0, 1.1e9, "0|200000000|400000000|600000000|800000000|1000000000|1200000000|m"},
        {-1e300, 1e300},
        {1e15, 1e15 + 1},
        {0, 5e-324},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.high);
        const ValueAxis axis = axisOf({{c.low, c.high}});
        EXPECT_EQ(labels(axis), c.labels ? c.labels : labels(axis));
        ASSERT_GE(axis.ticks.size(), 2u);
        EXPECT_LE(axis.ticks.size(), 20u);
        EXPECT_EQ(axis.ticks.front().height, 0);
        EXPECT_EQ(axis.ticks.back().height, 100);
        EXPECT_GE(heightOf(axis.scales[0], c.low), -1e-6);
        EXPECT_LE(heightOf(axis.scales[0], c.high), 100 + 1e-6);
        EXPECT_GE(heightOf(axis.scales[0], c.high), heightOf(axis.scales[0], c.low));
    }
}

TEST(ValueAxisTest, AroundAllVisibleSeriesOrTheChosenOne) {
    const std::vector<Range> ranges = {{0, 1}, {50, 100}, {-400, 400, "l/s"}};
    const std::array<bool, 4> withoutThird = {true, true, false, true};
    struct Case {
        ScaleChoice choice;
        const char* labels;
        std::array<double, 3> heights;  // of the highest values
    };
    const Case cases[] = {
        {{.visible = withoutThird}, "0|20|40|60|80|100|m", {1, 100, 400}},
        {{}, "-400|-200|0|200|400|", {50.125, 62.5, 100}},
        {{.series = 1}, "1:50|60|70|80|90|100|m", {-98, 100, 700}},
        {{.visible = withoutThird, .series = 2}, "0|20|40|60|80|100|m", {1, 100, 400}},
        {{.visible = {false, false, false, true}}, "", {0, 0, 0}},
        {{.series = 4}, "-400|-200|0|200|400|", {50.125, 62.5, 100}},
        {{.normalised = true}, "0 %|20 %|40 %|60 %|80 %|100 %|", {100, 100, 100}},
        {{.normalised = true, .series = 1}, "1:50|60|70|80|90|100|m", {100, 100, 100}},
    };
    for (const Case& c : cases) {
        const ValueAxis axis = axisOf(ranges, c.choice);
        EXPECT_EQ(labels(axis), c.labels);
        for (std::size_t i = 0; i < ranges.size(); ++i)
            EXPECT_DOUBLE_EQ(heightOf(axis.scales[i], ranges[i].high), c.heights[i]) << c.labels;
    }
    EXPECT_EQ(heightOf(axisOf(ranges).scales[0], 1e9), 2100) << "not beyond what can be drawn";
    EXPECT_NEAR(heightOf(axisOf({{7, 7}}, {.normalised = true}).scales[0], 7), 50, 1e-9);
}

}  // namespace
}  // namespace velt
