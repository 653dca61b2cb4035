// SPDX-License-Identifier: MIT
#include "trendviewer/reduction.h"

#include "tests/trendviewer/samplesof.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

namespace velt {
namespace {

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
        {1000, 1000, 1, " 9-2-3", "a moment"},
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
            EXPECT_TRUE(broken || curve.statistics.last == values.back().second);
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
        {"of steps too", Boolean, {{0, 6}, {1, 3}, {3, 9}}, 4, 3, 9},
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

}  // namespace
}  // namespace velt
