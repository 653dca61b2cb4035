// SPDX-License-Identifier: MIT
#include "trendviewer/clstrasflineare.h"

#include "platform/runtimeerror.h"

#include <gtest/gtest.h>

#include <limits>

namespace velt {
namespace {

constexpr double Largest = std::numeric_limits<double>::max();

TEST(clsTrasfLineareTest, ANewOneMapsEverythingToZero) {
    const clsTrasfLineare transform;
    EXPECT_EQ(transform.fx(50), 0);
    EXPECT_EQ(transform.Xmin() + transform.Ymin(), 0);
    EXPECT_EQ(transform.Xmax() + transform.Ymax(), 200);
}

TEST(clsTrasfLineareTest, MapsItsRanges) {
    struct Case {
        double xMin, xMax, yMin, yMax, m, q;
    };
    const Case cases[] = {{0, 10, 0, 100, 10, 0},
                          {0, 10, 100, 0, -10, 100},
                          {-2, 2, 5, 7, 0.5, 6},
                          {4, 3, 0, 1, -1, 4}};
    for (const Case& c : cases) {
        clsTrasfLineare transform;
        transform.SetMinMax(c.xMin, c.xMax, c.yMin, c.yMax);
        EXPECT_EQ(transform.M(), c.m);
        EXPECT_EQ(transform.Q(), c.q);
        EXPECT_EQ(transform.fx(c.xMin), c.yMin);
        EXPECT_EQ(transform.fx(c.xMax), c.yMax);
    }
}

TEST(clsTrasfLineareTest, EachEndOfARangeRecomputes) {
    clsTrasfLineare transform;
    transform.Xmin(0);
    EXPECT_EQ(transform.M(), 1);
    transform.Xmax(50);
    EXPECT_EQ(transform.M(), 2);
    transform.Ymin(50);
    EXPECT_EQ(transform.fx(0), 50);
    transform.Ymax(150);
    EXPECT_EQ(transform.fx(25), 100);
    transform.M(2);
    transform.Q(-1);
    EXPECT_EQ(transform.fx(3), 5) << "set directly";
    transform.Ymax(50);
    EXPECT_EQ(transform.M(), 0) << "until the next change of a range";
}

TEST(clsTrasfLineareTest, AnEmptySourceRangeKeepsTheMapping) {
    clsTrasfLineare transform;
    transform.SetMinMax(0, 10, 0, 100);
    transform.SetMinMax(5, 5, 0, 1);
    EXPECT_EQ(transform.M(), 10);
    EXPECT_EQ(transform.Q(), 0);
    EXPECT_EQ(transform.Xmin(), 5);
    EXPECT_EQ(transform.Xmax(), 5);
}

TEST(clsTrasfLineareTest, AResultBeyondTheDoublesIsAnError) {
    clsTrasfLineare transform;
    transform.SetMinMax(0, 10, 0, 100);
    EXPECT_THROW(transform.SetMinMax(0, 1, -Largest, Largest), RuntimeError);
    EXPECT_THROW(transform.SetMinMax(0, 1e-300, 0, 1e300), RuntimeError);
    EXPECT_THROW(transform.Xmin(std::numeric_limits<double>::quiet_NaN()), RuntimeError);
    EXPECT_EQ(transform.M(), 10) << "the mapping stays";
    try {
        static_cast<void>(transform.fx(Largest));
    } catch (const RuntimeError& error) {
        EXPECT_TRUE(error.is(ErrorNumber::Overflow));
    }
}

}  // namespace
}  // namespace velt
