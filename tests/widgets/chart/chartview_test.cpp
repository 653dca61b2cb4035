// SPDX-License-Identifier: MIT
#include "widgets/chart/chartview.h"

#include "tests/widgets/chart/contentsof.h"

#include <gtest/gtest.h>

namespace velt::ui {
namespace {

using Span = ChartView::Span;
constexpr ChartTime Minute = 60'000;

class ChartViewTest : public testing::Test {
protected:
    ChartViewTest() { view.plot(hour()); }
    static std::shared_ptr<const ChartContents> hour(double seconds = 3600) {
        std::vector<std::pair<double, double>> values;
        for (int i = 0; i <= 60; ++i) values.emplace_back(i * 60, i);
        return contentsOf(seconds, {samplesOf(values, SampleKind::Number, testStart())});
    }
    const ChartTime start = testStart();
    ChartView view;
};

TEST_F(ChartViewTest, ZoomsStepByStepAndBack) {
    EXPECT_TRUE(view.zoomTo({start + 40 * Minute, start + 10 * Minute})) << "dragged to the left";
    EXPECT_EQ(view.wanted(), (Span{start + 10 * Minute, start + 40 * Minute}));
    EXPECT_TRUE(view.zoomTo({start - Minute, start + 20 * Minute}));
    EXPECT_EQ(view.wanted(), (Span{start, start + 20 * Minute})) << "kept within the window";
    EXPECT_FALSE(view.zoomTo({start, start + 999})) << "too short";
    EXPECT_TRUE(view.zoomBack());
    EXPECT_TRUE(view.zoomBack());
    EXPECT_FALSE(view.zoomBack());
    EXPECT_EQ(view.wanted(), (Span{start, start + 60 * Minute}));
}

TEST_F(ChartViewTest, ZoomsAroundTheCursorWithoutLeavingTheView) {
    view.cursor(start + Minute);
    EXPECT_TRUE(view.zoomIn());
    EXPECT_EQ(view.wanted(), (Span{start, start + 30 * Minute}));
    view.cursor(std::nullopt);
    EXPECT_TRUE(view.zoomIn());
    EXPECT_EQ(view.wanted().to - view.wanted().from, 15 * Minute);
    for (int i = 0; i < 40; ++i) view.zoomIn();
    EXPECT_GE(view.wanted().to - view.wanted().from, ChartView::ShortestSpan);
}

TEST_F(ChartViewTest, ARefreshOfTheSameWindowKeepsWhatIsLookedAt) {
    view.zoomTo({start, start + 10 * Minute});
    view.cursor(start + 5 * Minute);
    view.mark(0);
    view.plot(hour());
    EXPECT_TRUE(view.zoomed());
    EXPECT_EQ(view.cursor(), start + 5 * Minute);
    EXPECT_EQ(view.markers()[0], start + 5 * Minute);

    view.cursor(start + 50 * Minute);
    view.mark(1);
    view.plot(hour(1800));
    EXPECT_FALSE(view.zoomed());
    EXPECT_EQ(view.shown(), view.whole());
    EXPECT_EQ(view.cursor(), std::nullopt) << "beyond the new window";
    EXPECT_TRUE(view.markers()[0].has_value());
    EXPECT_FALSE(view.markers()[1].has_value());
}

TEST_F(ChartViewTest, TheCursorGoesByPointsAndStopsAtTheEnds) {
    view.moveCursor(1);
    EXPECT_EQ(view.cursor(), start + 30 * Minute) << "appears in the middle";
    view.moveCursor(-10);
    EXPECT_EQ(view.cursor(), start + 20 * Minute);
    view.moveCursor(-100);
    EXPECT_EQ(view.cursor(), start);
    view.cursorToEnd();
    view.moveCursor(5);
    EXPECT_EQ(view.cursor(), start + 60 * Minute);
}

TEST_F(ChartViewTest, FractionsOfASecondOnlyWhereOneCanPointAtThem) {
    view.cursor(start + 5 * Minute + 499);
    EXPECT_EQ(view.cursor(), start + 5 * Minute);
    view.zoomTo({start + Minute - 300, start + 20 * Minute + 700});
    EXPECT_EQ(view.wanted(), (Span{start + Minute, start + 20 * Minute + 1000}));
    view.zoomTo({start + Minute - 300, start + Minute + 900});
    EXPECT_EQ(view.wanted(), (Span{start + Minute - 300, start + Minute + 900}));
}

TEST_F(ChartViewTest, WithoutContentsNothingHappens) {
    ChartView empty;
    empty.moveCursor(1);
    empty.mark(0);
    EXPECT_FALSE(empty.zoomIn());
    EXPECT_EQ(empty.cursor(), std::nullopt);
}

}  // namespace
}  // namespace velt::ui
