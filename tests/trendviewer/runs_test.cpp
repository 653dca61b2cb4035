// SPDX-License-Identifier: MIT
#include "trendviewer/runs.h"

#include "tests/trendviewer/samplesof.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

namespace velt {
namespace {

using testing::ElementsAre;

/// Where the runs begin behind the first, of samples with the given spacings in seconds.
std::vector<std::size_t> breaks(const std::vector<ChartTime>& spacings) {
    std::vector<ChartTime> times = {0};
    for (const ChartTime spacing : spacings) times.push_back(times.back() + spacing * 1000);
    const std::vector<double> values(times.size(), 1.0);
    std::vector<std::size_t> found;
    for (const SampleRun& run : findRuns(times, values))
        if (run.begin > 0) found.push_back(run.begin);
    return found;
}

std::vector<ChartTime> operator+(std::vector<ChartTime> a, const std::vector<ChartTime>& b) {
    a.insert(a.end(), b.begin(), b.end());
    return a;
}

TEST(RunsTest, BreakWhereSamplesAreMissing) {
    const std::vector<ChartTime> minutes(10, 60);
    const std::vector<ChartTime> quarters(10, 900);
    struct Case {
        const char* what;
        std::vector<ChartTime> spacings;
        std::vector<std::size_t> breaks;
    };
    const Case cases[] = {
        {"regular", minutes, {}},
        {"three times the usual is no break", minutes + std::vector<ChartTime>{180} + minutes, {}},
        {"more is", minutes + std::vector<ChartTime>{181} + minutes, {11}},
        {"older data sampled more slowly stays together", quarters + minutes, {}},
        {"so does newer data", minutes + quarters, {}},
        {"an outage between the two", quarters + std::vector<ChartTime>{7200} + minutes, {11}},
        {"a lone sample between two outages",
         minutes + std::vector<ChartTime>{3600, 3600} + minutes,
         {11, 12}},
        {"the hour that a 23-hour day lacks",
         minutes + std::vector<ChartTime>{3660} + minutes,
         {11}},
        {"the last sample after an outage", minutes + std::vector<ChartTime>{3600}, {11}},
        {"the first sample before an outage", std::vector<ChartTime>{3600} + minutes, {1}},
        {"each sample stored twice", {0, 60, 0, 60, 0, 60, 0, 60, 0, 60, 0, 60, 0}, {}},
        {"two samples", {86400}, {}},
        {"jitter", {60, 55, 70, 61, 160, 58, 62, 60, 59, 90}, {}},
        {"one lost sample is no break", minutes + std::vector<ChartTime>{120} + minutes, {}},
    };
    for (const Case& c : cases) EXPECT_EQ(breaks(c.spacings), c.breaks) << c.what;
}

TEST(RunsTest, BreakWhereAValueCannotBeDrawn) {
    const auto samples = samplesOf({{0, Missing},
                                    {1, 1},
                                    {2, 2},
                                    {3, INFINITY},
                                    {4, Missing},
                                    {5, 3},
                                    {6, -INFINITY},
                                    {7, 1e301},
                                    {8, 4},
                                    {9, -1e300}});
    EXPECT_THAT(samples->runs, ElementsAre(SampleRun{1, 3}, SampleRun{5, 6}, SampleRun{8, 10}));
    EXPECT_TRUE(samplesOf({{0, Missing}, {1, Missing}})->runs.empty());
    EXPECT_TRUE(samplesOf({})->runs.empty());
}

}  // namespace
}  // namespace velt
