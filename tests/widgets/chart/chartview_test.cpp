// SPDX-License-Identifier: MIT
#include "widgets/chart/chartview.h"

#include "tests/widgets/chart/contentsof.h"

#include <gtest/gtest.h>

namespace velt::ui {
namespace {

using Span = ChartView::Span;

class ChartViewTest : public testing::Test {
protected:
    ChartViewTest() { view.plot(contentsOf(3600, {})); }
    const ChartTime start = testStart();
    ChartView view;
};

TEST_F(ChartViewTest, ZoomsStepByStepAndBack) {
    EXPECT_TRUE(view.zoomTo({start + 40 * Minute, start + 10 * Minute})) << "dragged to the left";
    EXPECT_EQ(view.wanted(), (Span{start + 10 * Minute, start + 40 * Minute}));
    EXPECT_TRUE(view.zoomTo({start - Minute, start + 20 * Minute}));
    EXPECT_EQ(view.wanted(), (Span{start, start + 20 * Minute})) << "kept within the window";
    EXPECT_FALSE(view.zoomTo({start, start + 999})) << "too short";
    EXPECT_TRUE(view.zoomBack() && view.zoomBack());
    EXPECT_FALSE(view.zoomBack());
    EXPECT_EQ(view.wanted(), (Span{start, start + 60 * Minute}));

    view.cursor(start + Minute);
    EXPECT_TRUE(view.zoomIn());
    EXPECT_EQ(view.wanted(), (Span{start, start + 30 * Minute})) << "around the cursor";
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
    view.plot(contentsOf(3600, {}));
    EXPECT_TRUE(view.zoomed());
    EXPECT_EQ(view.cursor(), start + 5 * Minute);

    view.cursor(start + 50 * Minute);
    view.mark(1);
    view.plot(contentsOf(1800, {}));
    EXPECT_FALSE(view.zoomed());
    EXPECT_EQ(view.shown(), view.whole());
    EXPECT_EQ(view.cursor(), std::nullopt) << "beyond the new window";
    EXPECT_EQ(view.markers()[0], start + 5 * Minute);
    EXPECT_EQ(view.markers()[1], std::nullopt);
}

TEST_F(ChartViewTest, TheCursorGoesByPointsAndBySeconds) {
    view.moveCursor(1);
    EXPECT_EQ(view.cursor(), start + 30 * Minute) << "appears in the middle";
    view.moveCursor(-10);
    EXPECT_EQ(view.cursor(), start + 20 * Minute);
    view.moveCursor(-100);
    EXPECT_EQ(view.cursor(), start);
    view.cursorToEnd();
    view.moveCursor(5);
    EXPECT_EQ(view.cursor(), start + 60 * Minute);
    view.cursor(start + 5 * Minute + 499);
    EXPECT_EQ(view.cursor(), start + 5 * Minute);
    view.zoomTo({start + Minute - 300, start + 20 * Minute + 700});
    EXPECT_EQ(view.wanted(), (Span{start + Minute, start + 20 * Minute + 1000}));
    view.zoomTo({start + Minute - 300, start + Minute + 900});
    EXPECT_EQ(view.wanted(), (Span{start + Minute - 300, start + Minute + 900}))
        << "fractions where one can point at them";
    ChartView empty;
    empty.moveCursor(1);
    empty.mark(0);
    EXPECT_FALSE(empty.zoomIn());
    EXPECT_EQ(empty.cursor(), std::nullopt);
}

}  // namespace
}  // namespace velt::ui
