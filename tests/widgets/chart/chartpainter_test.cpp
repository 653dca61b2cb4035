// SPDX-License-Identifier: MIT
// What a drawn chart looks like, looked at pixel by pixel.
#include "widgets/chart/chartpainter.h"

#include "tests/widgets/chart/contentsof.h"
#include "widgets/chart/axespainter.h"
#include "widgets/chart/chartsheet.h"
#include "widgets/chart/curvepainter.h"

#include <QImage>
#include <QPainter>

#include <gtest/gtest.h>

#include <cmath>

namespace velt::ui {
namespace {

constexpr double Day = 86400;

QImage draw(const ChartDrawing& drawing, const QSize& size) {
    QImage image(size, QImage::Format_RGB32);
    QPainter painter(&image);
    paintChart(painter, QRectF(QPointF(0, 0), QSizeF(size)), drawing);
    return image;
}

bool isBlue(QRgb pixel) {
    return qBlue(pixel) - qRed(pixel) > 60 && qBlue(pixel) - qGreen(pixel) > 60;
}

/// Whether a pixel of the first pen stands in a part of the picture.
bool hasBlue(const QImage& image, const QRectF& part) {
    for (int y = int(std::ceil(part.top())); y < int(part.bottom()); ++y)
        for (int x = int(std::ceil(part.left())); x < int(part.right()); ++x)
            if (isBlue(image.pixel(x, y))) return true;
    return false;
}

/// A million samples of value 1, but for one of value 100.
std::shared_ptr<const ChartSamples> spikeAt(std::size_t place, SampleKind kind) {
    auto samples = std::make_shared<ChartSamples>();
    constexpr std::size_t Count = 1'000'000;
    samples->kind = kind;
    samples->values.assign(Count, 1.0);
    samples->values[place] = 100.0;
    for (std::size_t i = 0; i < Count; ++i)
        samples->times.push_back(testStart() + static_cast<ChartTime>(i) * 8000);
    samples->runs = {{0, Count}};
    return samples;
}

TEST(ChartPainterTest, ASpikeOfOneSampleShowsInEveryWidth) {
    for (const auto& [place, kind] : {std::pair{std::size_t{0}, SampleKind::Number},
                                      {123'457, SampleKind::Number},
                                      {500'000, SampleKind::Whole},
                                      {999'999, SampleKind::Number}}) {
        const ChartDrawing drawing = drawingOf(contentsOf(8e6, {spikeAt(place, kind)}));
        for (int width = 300; width <= 4000; width += width < 320 ? 1 : 97) {
            const QSize size(width, 120);
            const ChartGeometry geometry(drawing, QRectF(QPointF(0, 0), QSizeF(size)));
            const double x = geometry.xOf(testStart() + static_cast<ChartTime>(place) * 8000);
            const QRectF& plot = geometry.plot();
            // Its upper half: nothing else of the curve is there.
            const QRectF top(x - 2, plot.top(), 4, plot.height() / 2);
            EXPECT_TRUE(hasBlue(draw(drawing, size), top)) << place << " in " << width;
        }
    }
}

TEST(ChartPainterTest, TheLineBreaksWhereSamplesAreMissing) {
    std::vector<std::pair<double, double>> values;
    for (int minute = 0; minute < 1440; ++minute)
        if (minute < 500 || minute >= 700) values.emplace_back(minute * 60, minute % 7);
    values[1000].second = Missing;  // minute 1200
    const ChartDrawing drawing =
        drawingOf(contentsOf(Day, {samplesOf(values, SampleKind::Number, testStart())}));
    const QSize size(2000, 300);
    const QImage image = draw(drawing, size);
    const ChartGeometry geometry(drawing, QRectF(QPointF(0, 0), QSizeF(size)));
    const auto blueBetween = [&](double from, double to) {
        const auto x = [&](double minute) {
            return geometry.xOf(testStart() + static_cast<ChartTime>(minute * 60'000));
        };
        return hasBlue(image, {QPointF(x(from), geometry.plot().top()),
                               QPointF(x(to), geometry.plot().bottom() - 1)});
    };
    EXPECT_TRUE(blueBetween(490, 499));
    EXPECT_FALSE(blueBetween(502, 698));
    EXPECT_TRUE(blueBetween(700, 710));
    EXPECT_TRUE(blueBetween(1180, 1198));
    EXPECT_EQ(polylines(drawing.contents->series[0], 0, geometry).size(), 3U);
}

TEST(ChartPainterTest, StairsForWholeNumbersAndALineForOthers) {
    const std::vector<std::pair<double, double>> values = {{0, 0}, {10, 1}, {20, 0}};
    const QRectF area(0, 0, 400, 300);
    for (const auto& [kind, vertices] : {std::pair{SampleKind::Number, 3},
                                         {SampleKind::Single, 3},
                                         {SampleKind::Whole, 5},
                                         {SampleKind::Boolean, 5}}) {
        const ChartDrawing drawing =
            drawingOf(contentsOf(30, {samplesOf(values, kind, testStart())}));
        const auto lines = polylines(drawing.contents->series[0], 0, ChartGeometry(drawing, area));
        ASSERT_EQ(lines.size(), 1U);
        EXPECT_EQ(lines[0].size(), vertices);
        for (qsizetype i = 1; vertices == 5 && i < lines[0].size(); ++i)
            EXPECT_TRUE(lines[0][i].x() == lines[0][i - 1].x() ||
                        lines[0][i].y() == lines[0][i - 1].y());
    }
}

TEST(ChartPainterTest, AStepThatBeganBeforeTheViewStandsInIt) {
    const auto steps = samplesOf({{0, 5}, {600, 6}, {1200, 8}}, SampleKind::Whole, testStart());
    const auto whole = contentsOf(1200, {steps});
    const auto part = [&](int from, int to) {
        return drawingOf(vista(*whole, testStart() + from * 1000, testStart() + to * 1000));
    };
    const QRectF area(0, 0, 500, 300);
    for (const auto& [from, to] : {std::pair{300, 900}, {100, 200}, {700, 1100}}) {
        const ChartDrawing drawing = part(from, to);
        const ChartGeometry geometry(drawing, area);
        const auto lines = polylines(drawing.contents->series[0], 0, geometry);
        ASSERT_EQ(lines.size(), 1U) << from;
        EXPECT_LE(lines[0].first().x(), geometry.plot().left()) << from;
        EXPECT_GE(lines[0].last().x(), geometry.plot().right()) << from;
        EXPECT_GE(lines[0].first().y(), geometry.plot().top()) << from;
        EXPECT_LE(lines[0].first().y(), geometry.plot().bottom()) << from;
    }
}

TEST(ChartPainterTest, NumbersOfPensThatEndTogetherDoNotCoverOneAnother) {
    const auto same = samplesOf({{0, 0}, {3600, 0}}, SampleKind::Number, testStart());
    ChartDrawing drawing = drawingOf(contentsOf(3600, {same, same, same, same}));
    const QColor colors[] = {Qt::blue, Qt::red, Qt::darkGreen, Qt::magenta};
    const QImage image = draw(drawing, QSize(500, 200));
    for (const QColor& color : colors) {
        int pixels = 0;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 476; x < image.width(); ++x) pixels += image.pixelColor(x, y) == color;
        EXPECT_GT(pixels, 30) << color.name().toStdString();
    }
}

TEST(ChartPainterTest, DrawsWhateverTheFileHolds) {
    constexpr double Infinite = std::numeric_limits<double>::infinity();
    const std::vector<std::pair<const char*, std::vector<std::pair<double, double>>>> cases = {
        {"a single sample", {{1800, 5}}},
        {"a constant", {{0, 5}, {1800, 5}, {3600, 5}}},
        {"equal times", {{1800, 1}, {1800, 9}, {1800, 4}}},
        {"an infinite value beside others", {{0, 1}, {600, Infinite}, {1200, 2}}},
        {"huge values", {{0, -1e300}, {1800, 1e300}}},
        {"tiny values", {{0, 0}, {1800, 1e-308}}},
    };
    for (const auto& [what, values] : cases) {
        const ChartDrawing drawing =
            drawingOf(contentsOf(3600, {samplesOf(values, SampleKind::Number, testStart())}));
        for (const bool normalised : {false, true}) {
            ChartDrawing other = drawing;
            other.choice.normalised = normalised;
            const QSize size(500, 200);
            const ChartGeometry geometry(other, QRectF(QPointF(0, 0), QSizeF(size)));
            EXPECT_TRUE(hasBlue(draw(other, size), geometry.plot())) << what;
        }
    }
}

TEST(ChartPainterTest, SaysWhenNothingWasFoundAndHidesWhatIsHidden) {
    const auto empty = samplesOf({}, SampleKind::Number, testStart());
    const auto unusable = samplesOf({{10, Missing}}, SampleKind::Number, testStart());
    const QSize size(500, 200);
    for (const auto& samples : {empty, unusable}) {
        ChartDrawing drawing = drawingOf(contentsOf(3600, {samples}));
        drawing.colors.grid = Qt::white;
        const QRectF plot = ChartGeometry(drawing, QRectF(QPointF(0, 0), QSizeF(size))).plot();
        const QImage image = draw(drawing, size);
        bool written = false;
        for (int x = int(plot.left()) + 3; x < int(plot.right()); ++x)
            written = written || image.pixelColor(x, int(plot.center().y())).lightness() < 128;
        EXPECT_TRUE(written);
    }
    ChartDrawing hidden = drawingOf(
        contentsOf(3600, {samplesOf({{0, 1}, {3600, 2}}, SampleKind::Number, testStart())}));
    hidden.choice.visible[0] = false;
    EXPECT_FALSE(hasBlue(draw(hidden, size), QRectF(0, 0, 500, 200)));
}

TEST(ChartPainterTest, SurvivesEverySize) {
    const ChartDrawing drawing = drawingOf(
        contentsOf(Day, {samplesOf({{0, 1}, {Day, 2}}, SampleKind::Number, testStart())}));
    for (const QSize size : {QSize(1, 1), QSize(40, 10), QSize(10, 900), QSize(5000, 30)})
        EXPECT_FALSE(sheetImage(drawing, size, 1.0).isNull());
}

TEST(ChartPainterTest, LabelsMakeWayForOneAnother) {
    EXPECT_EQ(labelStep(100, 60), 1);
    EXPECT_EQ(labelStep(60, 60), 1);
    EXPECT_EQ(labelStep(59, 60), 2);
    EXPECT_EQ(labelStep(10, 60), 6);
    EXPECT_GT(labelStep(0, 60), 1000) << "only the first one";
}

}  // namespace
}  // namespace velt::ui
