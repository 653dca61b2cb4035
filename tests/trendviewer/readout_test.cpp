// SPDX-License-Identifier: MIT
#include "trendviewer/readout.h"

#include "tests/trendviewer/samplesof.h"
#include "trendviewer/vista.h"

#include <gtest/gtest.h>

namespace velt {
namespace {

TEST(ReadoutTest, TheSampleThatStandsForAMoment) {
    const std::vector<std::pair<double, double>> values = {
        {10, 1}, {20, 2}, {30, 3}, {40, 4}, {50, 5}, {60, Missing}, {70, 7}, {1000, 8}, {1000, 9}};
    struct Case {
        ChartTime seconds, tolerance;
        double ofLine, ofSteps;
    };
    const Case cases[] = {{10, 0, 1, 1},    {14, 0, 1, 1},   {16, 0, 2, 1},   {15, 0, 1, 1},
                          {50, 0, 5, 5},    {55, 0, -1, -1}, {70, 0, 7, 7},   {71, 0, -1, -1},
                          {500, 0, -1, -1}, {9, 0, -1, -1},  {1000, 0, 9, 9}, {1001, 0, -1, -1},
                          {9, 2, 1, 1},     {53, 4, 5, 5},   {66, 5, 7, 7},   {61, 15, 7, 7}};
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
                          {1.0 / 3, Number, "0,3333333"},
                          {123456789.25, Number, "123456789"},
                          {-2147483647, Whole, "-2147483647"},
                          {-1, Boolean, "Vero"},
                          {0, Boolean, "Falso"}};
    for (const Case& c : cases) EXPECT_EQ(valueText(c.value, c.kind, Locale::italian()), c.text);
    EXPECT_EQ(computedText(1e300, Locale::italian()), "1E+300");
}

}  // namespace
}  // namespace velt
