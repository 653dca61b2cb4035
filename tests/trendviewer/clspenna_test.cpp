// SPDX-License-Identifier: MIT
#include "trendviewer/clspenna.h"

#include <gtest/gtest.h>

namespace velt {
namespace {

/// Times from spacings in seconds, the first at a fixed moment.
std::vector<ChartTime> times(const std::vector<std::pair<int, int>>& countAndSpacing) {
    std::vector<ChartTime> result = {3'351'000'000'000};
    for (const auto& [count, spacing] : countAndSpacing)
        for (int i = 0; i < count; ++i) result.push_back(result.back() + spacing * 1000LL);
    return result;
}

TEST(CalcolaPeriodoCampTest, FindsTheNewestRegularSpacing) {
    struct Case {
        const char* what;
        std::vector<ChartTime> times;
        int period;
    };
    const Case cases[] = {
        {"ten samples are too few", times({{9, 60}}), 0},
        {"eleven will do", times({{10, 60}}), 60},
        {"the newest seven decide", times({{20, 60}, {6, 10}}), 10},
        {"six of them do not", times({{20, 60}, {5, 10}}), 60},
        {"five spacings in a row are too few", times({{5, 1}, {1, 2}, {5, 3}}), 0},
        {"never twice the same",
         times({{1, 1}, {1, 2}, {1, 3}, {1, 4}, {1, 5}, {1, 6}, {1, 7}, {1, 8}, {1, 9}, {1, 10}}),
         0},
        {"the longest that fits 16 bits", times({{10, 32767}}), 32767},
        {"one that does not", times({{10, 32768}}), 0},
        {"equal times have no period", times({{20, 60}, {6, 0}}), 0},
        {"no samples", {}, 0},
    };
    for (const Case& c : cases) EXPECT_EQ(CalcolaPeriodoCamp(c.times), c.period) << c.what;
}

TEST(CalcolaPeriodoCampTest, CountsSecondBoundaries) {
    std::vector<ChartTime> jittered;
    for (int i = 0; i < 20; ++i) jittered.push_back(3'351'000'000'000 + i * 60'000 + i % 3 * 300);
    EXPECT_EQ(CalcolaPeriodoCamp(jittered), 60);
}

}  // namespace
}  // namespace velt
