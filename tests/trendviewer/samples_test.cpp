// SPDX-License-Identifier: MIT
#include "trendviewer/samples.h"

#include "tests/errorof.h"
#include "tests/fakes/fakedatabase.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

namespace velt {
namespace {

using testing::ElementsAre;
using testing::NanSensitiveDoubleEq;

const double Missing = std::nan("");
const Date Start(38790.0);

ChartSamples read(std::vector<std::vector<Variant>> rows) {
    return leggiCampioni(fakes::FakeRowSet({"Data", "Valore"}, std::move(rows)), Locale::italian());
}

TEST(SamplesTest, TakesEveryKindOfValue) {
    struct Case {
        Variant value;
        double number;
        SampleKind kind;
    };
    const Case cases[] = {
        {1.25, 1.25, SampleKind::Number},
        {1.5F, 1.5, SampleKind::Single},
        {std::int16_t{-7}, -7, SampleKind::Whole},
        {std::int32_t{70000}, 70000, SampleKind::Whole},
        {std::uint8_t{200}, 200, SampleKind::Whole},
        {true, 1, SampleKind::Boolean},
        {"1.234,5", 1234.5, SampleKind::Number},
        {"12.5", Missing, SampleKind::Number},
        {Null{}, Missing, SampleKind::Number},
        {double{INFINITY}, INFINITY, SampleKind::Number},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.number);
        const ChartSamples samples = read({{Start, c.value}});
        EXPECT_THAT(samples.values, ElementsAre(NanSensitiveDoubleEq(c.number)));
        EXPECT_EQ(samples.kind, c.kind);
        EXPECT_EQ(samples.runs.size(), std::isfinite(c.number) ? 1u : 0u);
        EXPECT_EQ(read({{Start, Null{}}, {Start, c.value}}).kind, c.kind) << "the first that is";
    }
}

TEST(SamplesTest, SortsByTimeAndLeavesOutWhatHasNone) {
    const ChartSamples samples = read({{Start, 1.0},
                                       {Null{}, 2.0},
                                       {Date(1e12), 3.0},
                                       {Date(Missing), 4.0},
                                       {"ieri", 5.0},
                                       {Start, 6.0},
                                       {Date(-1.25), 8.0},
                                       {Date(-1.75), 7.0}});
    EXPECT_THAT(samples.values, ElementsAre(8, 7, 1, 6)) << "before 1899-12-30 numbers fall";
    EXPECT_THAT(samples.times,
                ElementsAre(-64'800'000, -21'600'000, Start.milliseconds(), Start.milliseconds()));
    EXPECT_TRUE(read({}).times.empty());
    const fakes::FakeRowSet narrow({"Data"}, {{Start}});
    EXPECT_EQ(errorOf([&] { (void)leggiCampioni(narrow, Locale::italian()); }),
              ErrorNumber::SubscriptOutOfRange);
}

}  // namespace
}  // namespace velt
