// SPDX-License-Identifier: MIT
#include "trendviewer/valueaxis.h"

#include <gtest/gtest.h>

namespace velt {
namespace {

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
        {0, 10, "0|2|4|6|8|10|m"},
        {0.3, 9.7, "0|2|4|6|8|10|m"},
        {-1.5, 1.2, "-1,5|-1,0|-0,5|0,0|0,5|1,0|1,5|m"},
        {100, 101, "100,0|100,2|100,4|100,6|100,8|101,0|m"},
        {5, 5, "4,4|4,6|4,8|5,0|5,2|5,4|5,6|m"},
        {0, 0, "-1,0|-0,5|0,0|0,5|1,0|m"},
        {0, 1.1e9, "0|200000000|400000000|600000000|800000000|1000000000|1200000000|m"},
        {-1e300, 1e300},
        {1e15, 1e15 + 1},
        {1e-300, 2e-300},
        {0, 5e-324},
        {123456.789, 123456.79},
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
        {{.series = 3}, "-400|-200|0|200|400|", {50.125, 62.5, 100}},
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
