// SPDX-License-Identifier: MIT
// How a chart's view goes, and what a drawn chart looks like, pixel by pixel.
#include "widgets/chart/chartpainter.h"

#include "tests/widgets/chart/contentsof.h"
#include "widgets/chart/axespainter.h"
#include "widgets/chart/chartsheet.h"
#include "widgets/chart/chartview.h"
#include "widgets/chart/curvepainter.h"

#include <QImage>
#include <QPainter>

#include <gtest/gtest.h>

#include <cmath>

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

/// A chart drawn in some size.
struct Picture {
    Picture(const ChartDrawing& drawing, int width, int height)
        : geometry(drawing, QRectF(0, 0, width, height)),
          image(width, height, QImage::Format_RGB32) {
        QPainter painter(&image);
        paintChart(painter, image.rect(), drawing);
    }
    /// Whether a pixel of the first pen stands in a part of the picture.
    [[nodiscard]] bool hasBlue(const QRectF& part) const {
        for (int y = int(std::ceil(part.top())); y < int(part.bottom()); ++y)
            for (int x = int(std::ceil(part.left())); x < int(part.right()); ++x) {
                const QColor pixel = image.pixelColor(x, y);
                if (pixel.blue() - std::max(pixel.red(), pixel.green()) > 60) return true;
            }
        return false;
    }
    ChartGeometry geometry;
    QImage image;
};

/// The parts that the first curve is drawn in.
std::vector<QPolygonF> linesOf(const ChartDrawing& drawing, const ChartGeometry& geometry) {
    return polylines(drawing.contents->series[0], 0, geometry);
}

TEST(ChartPainterTest, ASpikeOfOneSampleShowsInEveryWidth) {
    constexpr std::size_t Count = 1'000'000;
    for (const auto& [place, kind] : {std::pair{std::size_t{0}, SampleKind::Number},
                                      {123'457, SampleKind::Number},
                                      {500'000, SampleKind::Whole},
                                      {999'999, SampleKind::Number}}) {
        auto samples = std::make_shared<ChartSamples>();
        samples->kind = kind;
        samples->values.assign(Count, 1.0);
        samples->values[place] = 100.0;
        for (std::size_t i = 0; i < Count; ++i)
            samples->times.push_back(testStart() + static_cast<ChartTime>(i) * 8000);
        samples->runs = {{0, Count}};
        const ChartDrawing drawing = drawingOf(contentsOf(8e6, {samples}));
        for (int width = 300; width <= 4000; width += width < 320 ? 1 : 97) {
            const Picture picture(drawing, width, 120);
            // Its upper half: nothing else of the curve is there.
            const QRectF& plot = picture.geometry.plot();
            const double x = picture.geometry.xOf(samples->times[place]);
            EXPECT_TRUE(picture.hasBlue({x - 2, plot.top(), 4, plot.height() / 2}))
                << place << " in " << width;
        }
    }
}

TEST(ChartPainterTest, StairsForWholeNumbersALineForOthersAndABreakWhereSamplesAreMissing) {
    using enum SampleKind;
    for (const auto& [kind, vertices] : {std::pair{Number, 3}, {Single, 3}, {Whole, 5}}) {
        const ChartDrawing drawing = drawingOf(contentsOf(
            60, {trend({{0, 0}, {10, 1}, {20, 0}, {30, Missing}, {40, 1}, {50, 1}}, kind)}));
        const Picture picture(drawing, 400, 300);
        const auto lines = linesOf(drawing, picture.geometry);
        ASSERT_EQ(lines.size(), 2U);
        EXPECT_EQ(lines[0].size(), vertices);
        for (qsizetype i = 1; vertices == 5 && i < lines[0].size(); ++i)
            EXPECT_TRUE(lines[0][i].x() == lines[0][i - 1].x() ||
                        lines[0][i].y() == lines[0][i - 1].y());
        QRectF gap = picture.geometry.plot();
        gap.setLeft(picture.geometry.xOf(testStart() + 32'000));
        gap.setRight(picture.geometry.xOf(testStart() + 38'000));
        EXPECT_FALSE(picture.hasBlue(gap));
    }
}

TEST(ChartPainterTest, AStepThatBeganBeforeTheViewStandsInIt) {
    const auto whole = contentsOf(1200, {trend({{0, 5}, {600, 6}, {1200, 8}}, SampleKind::Whole)});
    const ChartDrawing drawing =
        drawingOf(vista(*whole, testStart() + 100'000, testStart() + 200'000));
    const ChartGeometry geometry(drawing, QRectF(0, 0, 500, 300));
    const auto lines = linesOf(drawing, geometry);
    ASSERT_EQ(lines.size(), 1U);
    EXPECT_LE(lines[0].first().x(), geometry.plot().left());
    EXPECT_GE(lines[0].last().x(), geometry.plot().right());
    EXPECT_TRUE(geometry.plot().contains(geometry.plot().center().x(), lines[0].first().y()));
}

TEST(ChartPainterTest, NumbersOfPensThatEndTogetherDoNotCoverOneAnother) {
    const auto same = trend({{0, 0}, {3600, 0}});
    const ChartDrawing drawing = drawingOf(contentsOf(3600, {same, same, same, same}));
    const QImage image = Picture(drawing, 500, 200).image;
    for (const QColor& color : drawing.penColors) {
        int pixels = 0;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 476; x < image.width(); ++x) pixels += image.pixelColor(x, y) == color;
        EXPECT_GT(pixels, 30) << color.name().toStdString();
    }
}

TEST(ChartPainterTest, DrawsWhateverTheFileHoldsAndSaysWhenThatIsNothing) {
    const std::vector<std::pair<double, double>> cases[] = {
        {{0, 5}, {1800, 5}, {3600, 5}},
        {{0, 1}, {600, INFINITY}, {1200, 2}},
        {{0, -1e300}, {1800, 1e300}},
        {{0, 0}, {1800, 1e-308}},
        {{10, Missing}},
        {},
    };
    for (const auto& values : cases) {
        ChartDrawing drawing = drawingOf(contentsOf(3600, {trend(values)}));
        drawing.colors.grid = Qt::white;
        for (const bool normalised : {false, true}) {
            SCOPED_TRACE(testing::PrintToString(values) + (normalised ? " normalised" : ""));
            drawing.choice.normalised = normalised;
            drawing.choice.visible[0] = true;
            const Picture picture(drawing, 500, 200);
            const QRectF plot = picture.geometry.plot();
            const bool hasData = drawing.contents->series[0].curve->statistics.count > 0;
            EXPECT_EQ(picture.hasBlue(plot), hasData);
            bool written = false;
            for (int x = int(plot.left()) + 3; x < int(plot.right()); ++x)
                written =
                    written || picture.image.pixelColor(x, int(plot.center().y())).value() < 128;
            EXPECT_TRUE(written || hasData);
            drawing.choice.visible[0] = false;
            EXPECT_FALSE(Picture(drawing, 500, 200).hasBlue(QRectF(0, 0, 500, 200))) << "hidden";
        }
        for (const QSize size : {QSize(1, 1), QSize(40, 10), QSize(10, 900), QSize(5000, 30)})
            EXPECT_FALSE(sheetImage(drawing, size, 1.0).isNull());
    }
}

TEST(ChartPainterTest, LabelsMakeWayForOneAnother) {
    EXPECT_EQ(labelStep(59, 60), 2);
    EXPECT_GT(labelStep(0, 60), 1000) << "only the first one";
}

}  // namespace
}  // namespace velt::ui
