// SPDX-License-Identifier: MIT
#include "trendviewer/clstrasflineare.h"

#include "tests/errorof.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace velt {
namespace {

TEST(clsTrasfLineareTest, EachChangeOfARangeRecomputes) {
    clsTrasfLineare transform;
    EXPECT_EQ(transform.fx(50), 0) << "a new one";
    transform.Xmin(0);
    EXPECT_EQ(transform.fx(50), 50);
    transform.SetMinMax(0, 10, 100, 0);
    EXPECT_EQ(transform.M(), -10);
    EXPECT_EQ(transform.Q(), 100);
    transform.SetMinMax(4, 3, 0, 1);
    EXPECT_EQ(transform.fx(3), 1);
    transform.Xmax(54);
    EXPECT_EQ(transform.fx(54), 1);
    transform.Ymin(50);
    EXPECT_EQ(transform.fx(4), 50);
    transform.Ymax(150);
    EXPECT_EQ(transform.fx(29), 100);
    transform.M(3);
    transform.Q(-1);
    EXPECT_EQ(transform.fx(3), 8) << "set directly";
    transform.Xmin(54);
    EXPECT_EQ(transform.fx(3), 8) << "an empty range keeps the mapping";
    EXPECT_EQ(transform.Xmin(), transform.Xmax());
    transform.Xmin(4);
    EXPECT_EQ(transform.M(), 2) << "until the next change of a range";
}

TEST(clsTrasfLineareTest, AResultBeyondTheDoublesIsAnError) {
    constexpr double Largest = std::numeric_limits<double>::max();
    clsTrasfLineare transform;
    transform.SetMinMax(0, 10, 0, 100);
    EXPECT_EQ(errorOf([&] { transform.SetMinMax(0, 1, -Largest, Largest); }),
              ErrorNumber::Overflow);
    EXPECT_EQ(errorOf([&] { transform.SetMinMax(-1e10, 0, 0, 1e300); }), std::nullopt);
    EXPECT_EQ(errorOf([&] { (void)transform.fx(1e20); }), ErrorNumber::Overflow);
    EXPECT_EQ(errorOf([&] { transform.Xmin(std::nan("")); }), ErrorNumber::Overflow);
    EXPECT_EQ(transform.M(), 1e290) << "the mapping stays";
}

}  // namespace
}  // namespace velt
