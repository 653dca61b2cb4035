// SPDX-License-Identifier: MIT
#include "trendviewer/valueaxis.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

namespace velt {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct Range {
    double low;
    double high;
    const char* unit = "m";
};

/// Contents whose series have the given ranges.
ChartContents contentsOf(const std::vector<Range>& ranges) {
    ChartContents contents;
    for (std::size_t i = 0; i < ranges.size(); ++i) {
        auto curve = std::make_shared<ChartCurve>();
        curve->statistics = {.count = 2, .minimum = ranges[i].low, .maximum = ranges[i].high};
        contents.series[i].curve = curve;
        contents.series[i].unit = ranges[i].unit;
    }
    return contents;
}

std::vector<std::string> labels(const ValueAxis& axis) {
    std::vector<std::string> texts;
    for (const ValueTick& tick : axis.ticks) texts.push_back(tick.text);
    return texts;
}

ValueAxis axisOf(const std::vector<Range>& ranges, const ScaleChoice& choice = {}) {
    return valueAxis(contentsOf(ranges), choice, Locale::italian());
}

TEST(ValueAxisTest, OneAxisWithRoundedBounds) {
    struct Case {
        double low, high;
        std::vector<std::string> labels;
    };
    const Case cases[] = {
        {0, 10, {"0", "2", "4", "6", "8", "10"}},
        {0.3, 9.7, {"0", "2", "4", "6", "8", "10"}},
        {-1.5, 1.2, {"-1,5", "-1,0", "-0,5", "0,0", "0,5", "1,0", "1,5"}},
        {100, 101, {"100,0", "100,2", "100,4", "100,6", "100,8", "101,0"}},
        {5, 5, {"4,4", "4,6", "4,8", "5,0", "5,2", "5,4", "5,6"}},
        {0, 0, {"-1,0", "-0,5", "0,0", "0,5", "1,0"}},
        {0,
         3e9,
         {"0", "500000000", "1000000000", "1500000000", "2000000000", "2500000000", "3000000000"}},
    };
    for (const Case& c : cases) EXPECT_EQ(labels(axisOf({{c.low, c.high}})), c.labels) << c.low;
}

TEST(ValueAxisTest, TheValuesLieWithinTheAxisAndTheTicksOnIt) {
    const std::pair<double, double> ranges[] = {
        {0, 1e-9},        {-1e300, 1e300},  {1e15, 1e15 + 1}, {-273.15, 0.01},
        {1e-300, 2e-300}, {-5e299, -4e299}, {0, 5e-324},      {123456.789, 123456.79}};
    for (const auto& [low, high] : ranges) {
        const ValueAxis axis = axisOf({{low, high}});
        ASSERT_GE(axis.ticks.size(), 2u) << low;
        EXPECT_LE(axis.ticks.size(), 20u) << low;
        EXPECT_EQ(axis.ticks.front().height, 0) << low;
        EXPECT_EQ(axis.ticks.back().height, 100) << low;
        EXPECT_GE(heightOf(axis.scales[0], low), -1e-6) << low;
        EXPECT_LE(heightOf(axis.scales[0], high), 100 + 1e-6) << low;
        EXPECT_GE(heightOf(axis.scales[0], high), heightOf(axis.scales[0], low)) << low;
    }
}

TEST(ValueAxisTest, AroundAllVisibleSeriesOrTheChosenOne) {
    const std::vector<Range> ranges = {{0, 1}, {50, 100}, {-400, 400, "l/s"}};
    ValueAxis axis = axisOf(ranges, {.visible = {true, true, false, true}});
    EXPECT_THAT(labels(axis), ElementsAre("0", "20", "40", "60", "80", "100"));
    EXPECT_EQ(axis.unit, "m");
    EXPECT_EQ(heightOf(axis.scales[0], 1), 1);
    EXPECT_EQ(axis.series, -1);

    EXPECT_EQ(axisOf(ranges).unit, "") << "two units on one axis";
    EXPECT_THAT(axisOf({}).ticks, IsEmpty()) << "without data nothing to label";
    EXPECT_THAT(axisOf({{0, 1}}, {.visible = {false, true, true, true}}).ticks, IsEmpty());

    axis = axisOf(ranges, {.series = 1});
    EXPECT_THAT(labels(axis), ElementsAre("50", "60", "70", "80", "90", "100"));
    EXPECT_EQ(axis.series, 1);
    EXPECT_LT(heightOf(axis.scales[0], 1), 0) << "others may leave the axis";
    EXPECT_EQ(heightOf(axis.scales[2], -400), -900);
    EXPECT_EQ(heightOf(axis.scales[2], -4e9), -2000) << "but not beyond what can be drawn";

    for (const ScaleChoice& choice :
         {ScaleChoice{.visible = {true, false, true, true}, .series = 1}, ScaleChoice{.series = 3},
          ScaleChoice{.series = 4}, ScaleChoice{.series = -7}})
        EXPECT_EQ(axisOf(ranges, choice).series, -1) << "hidden, without data, unknown";
}

TEST(ValueAxisTest, NormalisedEachSeriesFillsTheAxis) {
    const std::vector<Range> ranges = {{0, 2}, {50, 100}, {7, 7}};
    ValueAxis axis = axisOf(ranges, {.normalised = true});
    EXPECT_THAT(labels(axis), ElementsAre("0 %", "20 %", "40 %", "60 %", "80 %", "100 %"));
    EXPECT_EQ(axis.unit, "");
    EXPECT_EQ(heightOf(axis.scales[0], 1), 50);
    EXPECT_EQ(heightOf(axis.scales[1], 50), 0);
    EXPECT_EQ(heightOf(axis.scales[1], 100), 100);
    EXPECT_NEAR(heightOf(axis.scales[2], 7), 50, 1e-9) << "a constant stands in the middle";

    axis = axisOf(ranges, {.normalised = true, .series = 0});
    EXPECT_THAT(labels(axis), ElementsAre("0", "0,4", "0,8", "1,2", "1,6", "2"));
    EXPECT_EQ(axis.unit, "m");
    EXPECT_EQ(heightOf(axis.scales[1], 100), 100);
}

}  // namespace
}  // namespace velt
