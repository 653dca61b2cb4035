// SPDX-License-Identifier: MIT
#include "trendviewer/clspenna.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

namespace velt {
namespace {

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
        {"five spacings in a row are too few", {{5, 1}, {1, 2}, {5, 3}}, 0},
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

}  // namespace
}  // namespace velt
