// SPDX-License-Identifier: MIT
#include "trendviewer/samples.h"

#include "tests/fakes/fakedatabase.h"
#include "tests/trendviewer/samplesof.h"
#include "trendviewer/readout.h"
#include "trendviewer/reduction.h"
#include "trendviewer/samplecsv.h"
#include "trendviewer/vista.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <sstream>

namespace velt {
namespace {

using testing::ElementsAre;
using testing::NanSensitiveDoubleEq;

const Date Start(38790.0);

ChartSamples read(std::vector<std::vector<Variant>> rows) {
    return leggiCampioni(fakes::FakeRowSet({"Data", "Valore"}, std::move(rows)), Locale::italian());
}

TEST(SamplesTest, TakesEveryKindOfValue) {
    struct Case {
        Variant value;
        double number;
        SampleKind kind;
    };
    const Case cases[] = {
        {1.25, 1.25, SampleKind::Number},
        {1.5F, 1.5, SampleKind::Single},
        {std::int16_t{-7}, -7, SampleKind::Whole},
        {std::int32_t{70000}, 70000, SampleKind::Whole},
        {std::uint8_t{200}, 200, SampleKind::Whole},
        {true, 1, SampleKind::Boolean},
        {"1.234,5", 1234.5, SampleKind::Number},
        {"12.5", Missing, SampleKind::Number},
        {Null{}, Missing, SampleKind::Number},
        {double{INFINITY}, INFINITY, SampleKind::Number},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.number);
        const ChartSamples samples = read({{Start, c.value}});
        EXPECT_THAT(samples.values, ElementsAre(NanSensitiveDoubleEq(c.number)));
        EXPECT_EQ(samples.kind, c.kind);
        EXPECT_EQ(samples.runs.size(), std::isfinite(c.number) ? 1u : 0u);
        EXPECT_EQ(read({{Start, Null{}}, {Start, c.value}}).kind, c.kind) << "the first that is";
    }
}

TEST(SamplesTest, SortsByTimeAndLeavesOutWhatHasNone) {
    const ChartSamples samples = read({{Start, 1.0},
                                       {Null{}, 2.0},
                                       {Date(1e12), 3.0},
                                       {Date(Missing), 4.0},
                                       {"ieri", 5.0},
                                       {Start, 6.0},
                                       {Date(-1.25), 8.0},
                                       {Date(-1.75), 7.0}});
    EXPECT_THAT(samples.values, ElementsAre(8, 7, 1, 6)) << "before 1899-12-30 numbers fall";
    EXPECT_THAT(samples.times,
                ElementsAre(-64'800'000, -21'600'000, Start.milliseconds(), Start.milliseconds()));
    EXPECT_TRUE(read({}).times.empty());
}

using Spacings = std::vector<ChartTime>;  // seconds

TEST(RunsTest, BreakWhereSamplesAreMissing) {
    const Spacings minutes(10, 60);
    const Spacings quarters(10, 900);
    struct Case {
        const char* what;
        std::vector<Spacings> spacings;
        std::vector<std::size_t> begins;  // of the runs
    };
    const Case cases[] = {
        {"three times the usual is no break", {minutes, {180}, minutes}, {0}},
        {"more is", {minutes, {181}, minutes}, {0, 11}},
        {"older data sampled more slowly stays together", {quarters, minutes}, {0}},
        {"so does newer data", {minutes, quarters}, {0}},
        {"a lone sample between two outages", {minutes, {3600, 3600}, minutes}, {0, 11, 12}},
        {"the last sample after an outage", {minutes, {3600}}, {0, 11}},
        {"the first sample before an outage", {{3600}, minutes}, {0, 1}},
        {"each sample stored twice", {{0, 60, 0, 60, 0, 60, 0, 60, 0, 60, 0, 60, 0}}, {0}},
        {"two samples", {{86400}}, {0}},
    };
    for (const Case& c : cases) {
        std::vector<ChartTime> times = {0};
        for (const Spacings& some : c.spacings)
            for (const ChartTime seconds : some) times.push_back(times.back() + seconds * 1000);
        std::vector<std::size_t> begins;
        for (const SampleRun& run : findRuns(times, std::vector<double>(times.size())))
            begins.push_back(run.begin);
        EXPECT_EQ(begins, c.begins) << c.what;
    }
}

TEST(RunsTest, BreakWhereAValueCannotBeDrawn) {
    const ChartTime times[] = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9};
    const double values[] = {Missing, 1, 2, INFINITY, Missing, 3, -INFINITY, 1e301, 4, -1e300};
    EXPECT_THAT(findRuns(times, values),
                ElementsAre(SampleRun{1, 3}, SampleRun{5, 6}, SampleRun{8, 10}));
    EXPECT_THAT(findRuns({}, {}), ElementsAre());
}

/// The lines behind the heads.
std::string csv(const ChartContents& view, const std::array<bool, 4>& wanted) {
    std::string text;
    writeSampleCsv(view, wanted, [&](std::string_view piece) {
        text += piece;
        return true;
    });
    const std::string heads = "\xEF\xBB\xBFTrend;Data;Valore;Unità\r\n";
    EXPECT_TRUE(text.starts_with(heads));
    return text.substr(heads.size());
}

TEST(SampleCsvTest, ExactlyTheSamplesInView) {
    const ChartTime start = Date::fromFields({2006, 3, 14, 10, 0, 0, 0}).milliseconds();
    const auto samples = samplesOf({{0, 9}, {1, 0.1}, {1.5, Missing}, {3, -1234.5}, {4, 9}},
                                   SampleKind::Number, start);
    const auto singles = samplesOf({{2, double{0.1F}}}, SampleKind::Single, start);
    ChartContents view;
    view.start = start + 1000;
    view.end = start + 3000;
    view.series[0] = {.name = "Livello; \"Vasca\"", .unit = "m", .samples = samples};
    view.series[1] = {.name = "Nascosta", .samples = samples};
    view.series[3] = {.name = "Portata", .unit = "m³/h", .samples = singles};
    EXPECT_EQ(csv(view, {true, false, true, true}),
              "\"Livello; \"\"Vasca\"\"\";14/03/2006 10:00:01;0,1;m\r\n"
              "\"Livello; \"\"Vasca\"\"\";14/03/2006 10:00:01,500;;m\r\n"
              "\"Livello; \"\"Vasca\"\"\";14/03/2006 10:00:03;-1234,5;m\r\n"
              "Portata;14/03/2006 10:00:02;0,1;m³/h\r\n");
}

TEST(SampleCsvTest, GoesOutInPiecesAndEndsWhenToldSo) {
    ChartContents view;
    view.end = 20'000'000;
    view.series[0] = {.name = "a",
                      .samples = samplesOf(std::vector<std::pair<double, double>>(20'000))};
    EXPECT_EQ(csv(view, {true}).size(), 20'000 * std::size("a;30/12/1899 00:00:00;0;\r"));
    int pieces = 0;
    writeSampleCsv(view, {true}, [&](std::string_view) { return ++pieces < 2; });
    EXPECT_EQ(pieces, 2);
}

/// The last values of the points; "-" stands before one that is joined to the point before.
std::string drawn(const ChartCurve& curve) {
    std::ostringstream text;
    for (const ChartPoint& point : curve.points)
        text << (point.joined ? "-" : " ") << point.last.value;
    return text.str();
}

TEST(ReductionTest, CountsOnlyWhatLiesInViewAndDrawsTheLineBeyondIt) {
    const auto samples = samplesOf({{0, 9}, {1, 2}, {2, 3}, {3, 4}, {4, 9}, {5, Missing}, {6, 1}});
    struct Case {
        ChartTime from, to;
        std::size_t count;
        const char* drawn;
        const char* what;
    };
    const Case cases[] = {
        {1000, 3000, 3, " 9-2-3-4-9", "both ends included"},
        {0, 4000, 5, " 9-2-3-4-9", "nothing before it, a break behind it"},
        {1100, 1900, 0, " 2-3", "between two samples"},
        {4000, 7000, 2, " 4-9 1", "across a break"},
        {4100, 5900, 0, "", "within a break"},
        {7000, 9000, 0, "", "behind all"},
        {-9000, -1, 0, "", "before all"},
        {3000, 1000, 0, "", "an end before the start"},
    };
    for (const Case& c : cases) {
        const ChartCurve curve = reduce(*samples, c.from, c.to, 1000);
        EXPECT_EQ(drawn(curve), c.drawn) << c.what;
        EXPECT_EQ(curve.statistics.count, c.count) << c.what;
        const ChartCurve coarse = reduce(*samples, c.from, c.to, 2);
        EXPECT_EQ(coarse.statistics.count, c.count) << c.what;
        EXPECT_LE(coarse.points.size(), 4u) << c.what;
    }
}

TEST(ReductionTest, APointHoldsTheExtremesWhereverTheyStandAndHoweverManyBreaksThereAre) {
    constexpr std::size_t spikes[] = {0, 1, 499, 500, 777, 998, 999, 4998, 4999};
    for (const std::size_t spike : spikes)
        for (const bool broken : {false, true}) {
            SCOPED_TRACE(spike);
            std::vector<std::pair<double, double>> values;
            for (std::size_t i = 0; i < 5000; ++i) {
                const bool isMissing = broken && i % 2 != spike % 2;
                values.emplace_back(i, isMissing ? Missing : double(i * 7919 % 1000) / 1000);
            }
            values[spike].second = 50;
            values[(spike + 2500) % 5000].second = -50;
            const ChartCurve curve = reduce(*samplesOf(values), 0, 4'999'000, 10);
            ASSERT_EQ(curve.points.size(), 10u);
            const auto maximum = [](const ChartPoint& p) { return p.maximum.value; };
            EXPECT_EQ(std::ranges::max(curve.points, {}, maximum).maximum.time, spike * 1000);
            EXPECT_EQ(curve.statistics.maximum, 50);
            EXPECT_EQ(curve.statistics.minimum, -50);
            EXPECT_EQ(curve.statistics.count, broken ? 2500u : 5000u);
        }
}

TEST(ReductionTest, TheMeanIsWeightedByTheTimeInView) {
    using enum SampleKind;
    struct Case {
        const char* what;
        SampleKind kind;
        std::vector<std::pair<double, double>> samples;
        double mean, minimum, maximum;
    };
    // In view are the seconds from 0 to 10.
    const Case cases[] = {
        {"a line runs from value to value", Number, {{0, 0}, {10, 10}}, 5, 0, 10},
        {"steps hold their value", Whole, {{0, 0}, {10, 10}}, 0, 0, 10},
        {"long spacings weigh more", Number, {{0, 0}, {2, 0}, {3, 6}}, 1, 0, 6},
        {"a gap does not weigh", Number, {{0, 2}, {1, 2}, {2, Missing}, {3, 4}, {4, 4}}, 3, 2, 4},
        {"a single sample", Number, {{5, 7}}, 7, 7, 7},
        {"equal times", Number, {{5, 7}, {5, 9}}, 8, 7, 9},
        {"huge values", Number, {{0, 1e300}, {1, 1e300}, {2, 1e300}}, 1e300, 1e300, 1e300},
        {"a step that began before", Boolean, {{-9, 1}, {2, 0}, {12, 1}}, 0.2, 0, 1},
        {"one that ends with the start", Whole, {{-9, 9}, {0, 1}, {9, 1}}, 1, 1, 1},
        {"a line that comes in and goes out", Number, {{-5, 0}, {5, 10}, {15, 0}}, 7.5, 10, 10},
    };
    for (const Case& c : cases) {
        const auto found = reduce(*samplesOf(c.samples, c.kind), 0, 10'000, 1000).statistics;
        EXPECT_DOUBLE_EQ(found.mean, c.mean) << c.what;
        EXPECT_EQ(found.minimum, c.minimum) << c.what;
        EXPECT_EQ(found.maximum, c.maximum) << c.what;
    }
}

TEST(ReadoutTest, TheSampleThatStandsForAMoment) {
    const std::vector<std::pair<double, double>> values = {
        {10, 1}, {20, 2}, {30, 3}, {40, 4}, {50, 5}, {60, Missing}, {70, 7}, {1000, 8}, {1000, 9}};
    struct Case {
        ChartTime seconds, tolerance;
        double ofLine, ofSteps;
    };
    const Case cases[] = {{10, 0, 1, 1},   {16, 0, 2, 1},     {15, 0, 1, 1},    {50, 0, 5, 5},
                          {55, 0, -1, -1}, {70, 0, 7, 7},     {500, 0, -1, -1}, {9, 0, -1, -1},
                          {1000, 0, 9, 9}, {1001, 0, -1, -1}, {9, 2, 1, 1},     {53, 4, 5, 5},
                          {66, 5, 7, 7},   {61, 15, 7, 7}};
    for (const auto& [seconds, tolerance, ofLine, ofSteps] : cases)
        for (const auto& [kind, value] :
             {std::pair{SampleKind::Number, ofLine}, {SampleKind::Whole, ofSteps}}) {
            const auto found = sampleAt(*samplesOf(values, kind), seconds * 1000, tolerance * 1000);
            EXPECT_EQ(found ? found->value : -1, value) << seconds;
        }
    EXPECT_FALSE(sampleAt(*samplesOf({}), 0, 100'000));
}

TEST(ReadoutTest, OfAViewAlsoTheSamplesBesideIt) {
    ChartContents whole;
    whole.period = 10;
    whole.series[2].samples = samplesOf({{0, 1}, {10, 2}, {20, 3}, {30, 4}});
    EXPECT_EQ(sampleAt(*vista(whole, 12'000, 18'000), 2, 13'000), (ChartSample{10'000, 2}));
    const auto view = vista(whole, 10'000, 20'000);
    EXPECT_FALSE(sampleAt(*view, 2, 36'000)) << "beyond half a point";
    EXPECT_FALSE(sampleAt(*view, 0, 12'000)) << "a series without samples";
}

TEST(ReadoutTest, ValuesInTheDigitsOfTheirKind) {
    using enum SampleKind;
    struct Case {
        double value;
        SampleKind kind;
        const char* text;
    };
    const Case cases[] = {{0.1F, Single, "0,1"},
                          {1234.5678, Number, "1234,568"},
                          {123456789.25, Number, "123456789"},
                          {-2147483647, Whole, "-2147483647"},
                          {-1, Boolean, "Vero"},
                          {0, Boolean, "Falso"}};
    for (const Case& c : cases) EXPECT_EQ(valueText(c.value, c.kind, Locale::italian()), c.text);
    EXPECT_EQ(computedText(1e300, Locale::italian()), "1E+300");
}

}  // namespace
}  // namespace velt
