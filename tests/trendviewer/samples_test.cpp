// SPDX-License-Identifier: MIT
#include "trendviewer/samples.h"

#include "platform/runtimeerror.h"
#include "tests/fakes/fakedatabase.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace velt {
namespace {

using testing::DoubleEq;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::NanSensitiveDoubleEq;

const double Missing = std::nan("");
constexpr double Infinite = std::numeric_limits<double>::infinity();

ChartSamples read(const std::vector<std::vector<Variant>>& rows) {
    return leggiCampioni(fakes::FakeRowSet({"Data", "Valore"}, rows), Locale::italian());
}

Date at(double days) { return Date(38790.0 + days); }

TEST(SamplesTest, TakesEveryKindOfValue) {
    struct Case {
        const char* what;
        Variant value;
        double number;
        SampleKind kind;
    };
    const Case cases[] = {
        {"double or currency", 1.25, 1.25, SampleKind::Number},
        {"single", 1.5F, 1.5, SampleKind::Single},
        {"16-bit integer", std::int16_t{-7}, -7, SampleKind::Whole},
        {"32-bit integer", std::int32_t{70000}, 70000, SampleKind::Whole},
        {"byte", std::uint8_t{200}, 200, SampleKind::Whole},
        {"Boolean", true, 1, SampleKind::Boolean},
        {"text", "1.234,5", 1234.5, SampleKind::Number},
        {"text that is no number", "12.5", Missing, SampleKind::Number},
        {"null", Null{}, Missing, SampleKind::Number},
        {"an infinite value", Infinite, Infinite, SampleKind::Number},
    };
    for (const Case& c : cases) {
        const ChartSamples samples = read({{at(0), c.value}});
        EXPECT_THAT(samples.values, ElementsAre(NanSensitiveDoubleEq(c.number))) << c.what;
        EXPECT_EQ(samples.kind, c.kind) << c.what;
        EXPECT_EQ(samples.runs.size(), std::isfinite(c.number) ? 1u : 0u) << c.what;
    }
}

TEST(SamplesTest, TheFirstValueThatThereIsTellsTheKind) {
    EXPECT_EQ(read({{at(0), Null{}}, {at(1), std::int16_t{1}}}).kind, SampleKind::Whole);
    EXPECT_EQ(read({{at(0), "x"}, {at(1), "2"}}).kind, SampleKind::Number);
}

TEST(SamplesTest, SortsByTimeAndKeepsEqualTimesInOrder) {
    const ChartSamples samples = read({{at(2), 1.0}, {at(1), 2.0}, {at(2), 3.0}, {at(0), 4.0}});
    EXPECT_THAT(samples.values, ElementsAre(4, 2, 1, 3));
    EXPECT_TRUE(std::ranges::is_sorted(samples.times));
}

TEST(SamplesTest, DatesBefore1899RunForward) {
    // 06:00 and 18:00 of 1899-12-29: as numbers they fall.
    const ChartSamples samples = read({{Date(-1.75), 2.0}, {Date(-1.25), 1.0}, {Date(0.5), 3.0}});
    EXPECT_THAT(samples.values, ElementsAre(1, 2, 3));
    EXPECT_THAT(samples.times, ElementsAre(-64'800'000, -21'600'000, 43'200'000));
}

TEST(SamplesTest, RowsWithoutATimeAreLeftOut) {
    const ChartSamples samples = read(
        {{Null{}, 1.0}, {Date(1e12), 2.0}, {Date(std::nan("")), 3.0}, {"ieri", 4.0}, {at(0), 5.0}});
    EXPECT_THAT(samples.values, ElementsAre(5));
    EXPECT_THAT(samples.times, ElementsAre(at(0).milliseconds()));
    EXPECT_THAT(read({}).times, IsEmpty());
}

TEST(SamplesTest, ARowNeedsTwoColumns) {
    const fakes::FakeRowSet rows({"Data"}, {{at(0)}});
    EXPECT_THROW(static_cast<void>(leggiCampioni(rows, Locale::italian())), RuntimeError);
}

}  // namespace
}  // namespace velt
