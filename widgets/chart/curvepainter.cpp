// SPDX-License-Identifier: MIT
#include "widgets/chart/curvepainter.h"

#include "adapters/qt/colors.h"

#include <QPaintEngine>

#include <algorithm>
#include <cmath>
#include <utility>

namespace velt::ui {
namespace {

constexpr double LineWidth = 1.5;
constexpr double DotWidth = 4;        // of a sample that has no neighbour
constexpr qsizetype PieceLength = 8;  // vertices: long lines are slow to draw in one
constexpr double LongLine = 3;        // widths of the plot
constexpr double NumberBox = 13;      // pixels

class PolylineMaker {
public:
    PolylineMaker(const ChartGeometry& geometry, std::size_t series, bool steps)
        : geometry_(geometry), series_(series), steps_(steps) {}

    void add(const ChartPoint& point) {
        if (!point.joined || lines_.empty()) lines_.emplace_back();
        ChartSample early = point.minimum;
        ChartSample late = point.maximum;
        if (late.time < early.time) std::swap(early, late);
        addVertex(point.first);
        if (early != point.first) addVertex(early);
        if (late != early) addVertex(late);
        if (point.last != late) addVertex(point.last);
    }
    std::vector<QPolygonF> take() { return std::move(lines_); }

private:
    void addVertex(const ChartSample& sample) {
        QPolygonF& line = lines_.back();
        const QPointF vertex(geometry_.xOf(sample.time), geometry_.yOf(series_, sample.value));
        if (steps_ && !line.isEmpty()) line.append(QPointF(vertex.x(), line.last().y()));
        line.append(vertex);
    }

    const ChartGeometry& geometry_;
    std::size_t series_;
    bool steps_;
    std::vector<QPolygonF> lines_;
};

bool isDot(const QPolygonF& line) {
    return std::ranges::all_of(line, [&](const QPointF& p) {
        return std::abs(p.x() - line.first().x()) < 0.5 && std::abs(p.y() - line.first().y()) < 0.5;
    });
}

double lengthOf(const std::vector<QPolygonF>& lines) {
    double length = 0;
    for (const QPolygonF& line : lines)
        for (qsizetype i = 1; i < line.size(); ++i)
            length += (line[i] - line[i - 1]).manhattanLength();
    return length;
}

void paintLines(QPainter& painter, const QPen& pen, const std::vector<QPolygonF>& lines) {
    painter.setPen(pen);
    for (const QPolygonF& line : lines)
        for (qsizetype begin = 0; begin + 1 < line.size(); begin += PieceLength)
            painter.drawPolyline(line.constData() + begin,
                                 static_cast<int>(std::min(PieceLength + 1, line.size() - begin)));
}

/// On a screen a line is quick to draw only when it is no more than a pixel of the device wide
/// (measured: 30 to 100 times quicker). A long, jagged one is drawn so, side by side as often as it
/// takes to be as wide as on a coarser screen.
void paintCurve(QPainter& painter, const QColor& color, const std::vector<QPolygonF>& lines,
                const QRectF& plot) {
    const bool onScreen = painter.paintEngine()->type() == QPaintEngine::Raster;
    QPen pen(color, LineWidth, Qt::SolidLine, Qt::RoundCap, Qt::BevelJoin);
    if (onScreen && lengthOf(lines) > LongLine * plot.width()) {
        const double ratio = std::max(painter.device()->devicePixelRatioF(), 1.0);
        pen.setWidthF(1 / ratio);
        const int strokes = static_cast<int>(std::lround(ratio));
        for (int i = 0; i < strokes; ++i) {
            const double beside = (i - (strokes - 1) / 2.0) / ratio;
            painter.translate(beside, beside);
            paintLines(painter, pen, lines);
            painter.translate(-beside, -beside);
        }
    } else {
        paintLines(painter, pen, lines);
    }
    painter.setPen(QPen(color, DotWidth, Qt::SolidLine, Qt::RoundCap));
    for (const QPolygonF& line : lines)
        if (isDot(line)) painter.drawPoint(line.first());
}

/// Where a line ends, or leaves the plot to the right.
QPointF endOf(const QPolygonF& line, const QRectF& plot) {
    qsizetype i = line.size() - 1;
    while (i > 0 && line[i - 1].x() > plot.right()) --i;
    const QPointF end = line[i];
    if (end.x() <= plot.right() || i == 0) return end;
    const QPointF before = line[i - 1];
    const double part = (plot.right() - before.x()) / (end.x() - before.x());
    return {plot.right(), before.y() + (end.y() - before.y()) * part};
}

/// The number of a pen, and the place of its centre.
using PenNumber = std::pair<std::size_t, QPointF>;

/// Moves numbers up and down that would cover one another.
void spread(std::vector<PenNumber>& numbers, const QRectF& plot) {
    constexpr double Distance = NumberBox + 1;
    const auto beside = [](const PenNumber& a, const PenNumber& b) {
        return std::abs(a.second.x() - b.second.x()) < Distance;
    };
    std::ranges::stable_sort(numbers, {}, [](const PenNumber& n) { return n.second.y(); });
    for (std::size_t i = 1; i < numbers.size(); ++i)
        for (std::size_t above = 0; above < i; ++above)
            if (beside(numbers[i], numbers[above]))
                numbers[i].second.setY(
                    std::max(numbers[i].second.y(), numbers[above].second.y() + Distance));
    for (std::size_t i = numbers.size(); i-- > 0;) {
        double lowest = plot.bottom() - NumberBox / 2;  // not over the labels
        for (std::size_t below = i + 1; below < numbers.size(); ++below)
            if (beside(numbers[i], numbers[below]))
                lowest = std::min(lowest, numbers[below].second.y() - Distance);
        numbers[i].second.setY(std::min(numbers[i].second.y(), lowest));
    }
}

}  // namespace

std::vector<QPolygonF> polylines(const ChartSeries& series, std::size_t index,
                                 const ChartGeometry& geometry) {
    if (!series.curve || !series.samples) return {};
    PolylineMaker maker(geometry, index, series.samples->steps());
    for (const ChartPoint& point : series.curve->points) maker.add(point);
    return maker.take();
}

void paintPenNumber(QPainter& painter, const ChartDrawing& drawing, std::size_t series,
                    const QPointF& at) {
    const QRectF box(at.x() - NumberBox / 2, at.y() - NumberBox / 2, NumberBox, NumberBox);
    const QColor& color = drawing.penColors[series];
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    painter.drawRoundedRect(box, 2, 2);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(qt::readableOn(color));
    painter.setFont(chartFont(drawing.font, static_cast<int>(NumberBox) - 3));
    painter.drawText(box, Qt::AlignCenter, QString::number(series + 1));
}

void paintCurves(QPainter& painter, const ChartDrawing& drawing, const ChartGeometry& geometry) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF& plot = geometry.plot();
    std::vector<PenNumber> numbers;
    painter.setClipRect(plot.adjusted(-1, -1, 1, 1));
    for (std::size_t k = 0; k < ChartSeriesCount; ++k) {
        if (!drawing.shows(k)) continue;
        const auto lines = polylines(drawing.contents->series[k], k, geometry);
        if (lines.empty()) continue;
        paintCurve(painter, drawing.penColors[k], lines, plot);
        const QPointF end = endOf(lines.back(), plot);
        numbers.emplace_back(k, QPointF(std::min(end.x(), plot.right()) + NumberBox,
                                        std::clamp(end.y(), plot.top(), plot.bottom())));
    }
    painter.setClipping(false);
    spread(numbers, plot);
    for (const auto& [series, place] : numbers) paintPenNumber(painter, drawing, series, place);
    painter.restore();
}

}  // namespace velt::ui
