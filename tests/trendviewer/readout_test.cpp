// SPDX-License-Identifier: MIT
#include "trendviewer/readout.h"

#include "tests/trendviewer/samplesof.h"
#include "trendviewer/vista.h"

#include <gtest/gtest.h>

namespace velt {
namespace {

double valueAt(const ChartSamples& samples, double seconds, double tolerance = 0) {
    const auto found = sampleAt(samples, static_cast<ChartTime>(seconds * 1000),
                                static_cast<ChartTime>(tolerance * 1000));
    return found ? found->value : -1;
}

TEST(ReadoutTest, TheSampleThatStandsForAMoment) {
    const std::vector<std::pair<double, double>> values = {
        {10, 1}, {20, 2}, {30, 3}, {40, 4}, {50, 5}, {60, Missing}, {70, 7}, {1000, 8}};
    const auto line = samplesOf(values);
    const auto steps = samplesOf(values, SampleKind::Whole);
    struct Case {
        double seconds, ofLine, ofSteps;
    };
    const Case cases[] = {{10, 1, 1},    {14, 1, 1},   {16, 2, 1},   {15, 1, 1},
                          {50, 5, 5},    {55, -1, -1}, {70, 7, 7},   {71, -1, -1},
                          {500, -1, -1}, {9, -1, -1},  {1000, 8, 8}, {1001, -1, -1}};
    for (const Case& c : cases) {
        EXPECT_EQ(valueAt(*line, c.seconds), c.ofLine) << c.seconds;
        EXPECT_EQ(valueAt(*steps, c.seconds), c.ofSteps) << c.seconds;
    }
    EXPECT_EQ(valueAt(*line, 9, 2), 1) << "just beside a run";
    EXPECT_EQ(valueAt(*line, 53, 4), 5);
    EXPECT_EQ(valueAt(*line, 66, 5), 7);
    EXPECT_EQ(valueAt(*line, 61, 15), 7) << "the nearer one of two";
    EXPECT_EQ(valueAt(*samplesOf({}), 0, 100), -1);
    EXPECT_EQ(valueAt(*samplesOf({{5, 1}, {5, 2}}), 5), 2) << "the last of equal times";
}

TEST(ReadoutTest, OfAViewAlsoTheSamplesBesideIt) {
    ChartContents whole;
    whole.period = 10;
    whole.series[2].samples = samplesOf({{0, 1}, {10, 2}, {20, 3}, {30, 4}});
    const auto view = vista(whole, 10'000, 20'000);
    EXPECT_EQ(view->series[2].curve->statistics.count, 2u);
    EXPECT_EQ(sampleAt(*view, 2, 12'000)->value, 2);
    EXPECT_EQ(sampleAt(*vista(whole, 12'000, 18'000), 2, 13'000)->time, 10'000);
    EXPECT_FALSE(sampleAt(*view, 2, 36'000));
    EXPECT_FALSE(sampleAt(*view, 0, 12'000)) << "a series without samples";
}

TEST(ReadoutTest, PointsStandForMoments) {
    ChartContents whole;
    whole.period = 60;
    const auto view = vista(whole, 1'000'000, 1'000'000 + 3'600'000);
    ASSERT_EQ(view->points, 60);
    EXPECT_EQ(timeOfPoint(*view, 2), 1'120'000);
    EXPECT_EQ(pointAt(*view, 1'129'000), 2);
    EXPECT_EQ(pointAt(*view, 0), 0);
    EXPECT_EQ(pointAt(*view, 99'000'000), 60);
    EXPECT_EQ(timeOfPoint(*view, 61), view->end);
    const auto empty = vista(whole, 5000, 5000);
    EXPECT_EQ(timeOfPoint(*empty, pointAt(*empty, 9000)), 5000);
}

TEST(ReadoutTest, ValuesInTheDigitsOfTheirKind) {
    const Locale locale;
    EXPECT_EQ(valueText(0.1F, SampleKind::Single, locale), "0,1");
    EXPECT_EQ(valueText(1234.5678, SampleKind::Number, locale), "1234,568");
    EXPECT_EQ(valueText(1.90976552160868, SampleKind::Number, locale), "1,909766");
    EXPECT_EQ(valueText(123456789.25, SampleKind::Number, locale), "123456789");
    EXPECT_EQ(valueText(2147483647, SampleKind::Whole, locale), "2147483647");
    EXPECT_EQ(valueText(-3, SampleKind::Whole, locale), "-3");
    EXPECT_EQ(valueText(-1, SampleKind::Boolean, locale), "Vero");
    EXPECT_EQ(valueText(0, SampleKind::Boolean, locale), "Falso");
    EXPECT_EQ(computedText(1.0 / 3, locale), "0,3333333");
    EXPECT_EQ(computedText(1e300, locale), "1E+300");
}

}  // namespace
}  // namespace velt
