// SPDX-License-Identifier: MIT
#include "trendviewer/reduction.h"

#include "tests/trendviewer/samplesof.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace velt {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<double> lasts(const ChartCurve& curve) {
    std::vector<double> values;
    for (const ChartPoint& point : curve.points) values.push_back(point.last.value);
    return values;
}

std::vector<bool> joins(const ChartCurve& curve) {
    std::vector<bool> joined;
    for (const ChartPoint& point : curve.points) joined.push_back(point.joined);
    return joined;
}

/// `count` samples a second apart that stay between 0 and 1.
std::vector<std::pair<double, double>> noise(int count) {
    std::vector<std::pair<double, double>> samples;
    for (int i = 0; i < count; ++i) samples.emplace_back(i, (i * 7919 % 1000) / 1000.0);
    return samples;
}

TEST(ReductionTest, FewSamplesArePointsOfTheirOwn) {
    const auto samples = samplesOf({{0, 1}, {1, 2}, {2, Missing}, {3, 4}, {4, 5}});
    const ChartCurve curve = reduce(*samples, 0, 4000, 1000);
    EXPECT_THAT(lasts(curve), ElementsAre(1, 2, 4, 5));
    EXPECT_THAT(joins(curve), ElementsAre(false, true, false, true));
    EXPECT_EQ(curve.points[1].first, (ChartSample{1000, 2}));
}

TEST(ReductionTest, CountsOnlyWhatLiesInViewAndDrawsTheLineBeyondIt) {
    const auto samples = samplesOf({{0, 9}, {1, 2}, {2, 3}, {3, 4}, {4, 9}, {5, Missing}, {6, 1}});
    struct Case {
        ChartTime from, to;
        std::size_t count;
        std::vector<double> drawn;
        const char* what;
    };
    const Case cases[] = {
        {1000, 3000, 3, {9, 2, 3, 4, 9}, "both ends included"},
        {0, 4000, 5, {9, 2, 3, 4, 9}, "nothing before it, a break behind it"},
        {1100, 1900, 0, {2, 3}, "between two samples"},
        {1000, 1000, 1, {9, 2, 3}, "a moment"},
        {4000, 7000, 2, {4, 9, 1}, "across a break"},
        {4100, 5900, 0, {}, "within a break"},
        {7000, 9000, 0, {}, "behind all"},
        {-9000, -1, 0, {}, "before all"},
        {3000, 1000, 0, {}, "an end before the start"},
    };
    for (const Case& c : cases) {
        for (const int maxPoints : {1000, 2}) {
            const ChartCurve curve = reduce(*samples, c.from, c.to, maxPoints);
            EXPECT_EQ(curve.statistics.count, c.count) << c.what;
            if (maxPoints == 1000) {
                EXPECT_EQ(lasts(curve), c.drawn) << c.what;
            }
            EXPECT_LE(curve.points.size(), static_cast<std::size_t>(maxPoints) + 2) << c.what;
            EXPECT_FALSE(!curve.points.empty() && curve.points.front().joined) << c.what;
        }
    }
    const ChartCurve inner = reduce(*samples, 1000, 3000, 1000);
    EXPECT_THAT(joins(inner), ElementsAre(false, true, true, true, true));
    EXPECT_EQ(inner.statistics.maximum, 4);
    EXPECT_EQ(inner.statistics.last, 4);
}

TEST(ReductionTest, APointHoldsTheExtremesWhereverTheyStand) {
    for (const int spike : {0, 1, 499, 500, 777, 998, 999, 4998, 4999}) {
        auto values = noise(5000);
        values[static_cast<std::size_t>(spike)].second = 50;
        values[static_cast<std::size_t>((spike + 2500) % 5000)].second = -50;
        const auto samples = samplesOf(values);
        const ChartCurve curve = reduce(*samples, 0, 4'999'000, 10);
        ASSERT_EQ(curve.points.size(), 10u);
        EXPECT_EQ(
            std::ranges::max(curve.points, {}, [](auto& p) { return p.maximum.value; }).maximum,
            (ChartSample{spike * 1000, 50}));
        EXPECT_EQ(curve.statistics.maximum, 50) << spike;
        EXPECT_EQ(curve.statistics.minimum, -50) << spike;
        EXPECT_EQ(curve.statistics.last, values.back().second) << spike;
    }
}

TEST(ReductionTest, HoweverManyBreaksThePointsStayFew) {
    auto values = noise(10'000);
    for (std::size_t i = 1; i < values.size(); i += 2) values[i].second = Missing;
    values[4000].second = 7;
    const ChartCurve curve = reduce(*samplesOf(values), 0, 9'999'000, 100);
    EXPECT_EQ(curve.points.size(), 100u);
    EXPECT_EQ(curve.statistics.count, 5000u);
    EXPECT_EQ(curve.statistics.maximum, 7);
}

TEST(ReductionTest, TheMeanIsWeightedByTime) {
    struct Case {
        const char* what;
        std::vector<std::pair<double, double>> samples;
        SampleKind kind;
        double mean;
    };
    using enum SampleKind;
    const Case cases[] = {
        {"a line runs from value to value", {{0, 0}, {10, 10}}, Number, 5},
        {"steps hold their value", {{0, 0}, {10, 10}}, Whole, 0},
        {"long spacings weigh more", {{0, 0}, {2, 0}, {3, 6}}, Number, 1},
        {"of steps too", {{0, 6}, {1, 3}, {3, 9}}, Boolean, 4},
        {"what is missing does not weigh",
         {{0, 2}, {1, 2}, {2, Missing}, {3, 4}, {4, 4}},
         Number,
         3},
        {"a single sample", {{5, 7}}, Number, 7},
        {"equal times", {{5, 7}, {5, 9}}, Number, 8},
        {"huge values", {{0, 1e300}, {1, 1e300}, {2, 1e300}}, Number, 1e300},
    };
    for (const Case& c : cases) {
        const auto samples = samplesOf(c.samples, c.kind);
        EXPECT_DOUBLE_EQ(reduce(*samples, 0, 10'000, 1000).statistics.mean, c.mean) << c.what;
    }
}

}  // namespace
}  // namespace velt
