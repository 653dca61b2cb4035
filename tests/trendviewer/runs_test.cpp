// SPDX-License-Identifier: MIT
#include "trendviewer/runs.h"

#include "tests/trendviewer/samplesof.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace velt {
namespace {

using testing::ElementsAre;
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
        {"regular", {minutes}, {0}},
        {"three times the usual is no break", {minutes, {180}, minutes}, {0}},
        {"more is", {minutes, {181}, minutes}, {0, 11}},
        {"older data sampled more slowly stays together", {quarters, minutes}, {0}},
        {"so does newer data", {minutes, quarters}, {0}},
        {"an outage between the two", {quarters, {7200}, minutes}, {0, 11}},
        {"a lone sample between two outages", {minutes, {3600, 3600}, minutes}, {0, 11, 12}},
        {"the last sample after an outage", {minutes, {3600}}, {0, 11}},
        {"the first sample before an outage", {{3600}, minutes}, {0, 1}},
        {"each sample stored twice", {{0, 60, 0, 60, 0, 60, 0, 60, 0, 60, 0, 60, 0}}, {0}},
        {"two samples", {{86400}}, {0}},
        {"jitter", {{60, 55, 70, 61, 160, 58, 62, 60, 59, 90}}, {0}},
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

}  // namespace
}  // namespace velt
