// SPDX-License-Identifier: MIT
#include "widgets/chart/cursorpainter.h"

#include "adapters/qt/text.h"
#include "trendviewer/readout.h"
#include "widgets/chart/curvepainter.h"

#include <QFontMetricsF>

#include <algorithm>

namespace velt::ui {
namespace {

constexpr double Padding = 5;
constexpr double NumberRoom = 18;  // before a line, for the number of its pen
constexpr double FromCursor = 10;  // of the box

QString text(const std::string& utf8) { return qt::toQt(utf8); }

bool inView(const ChartDrawing& drawing, ChartTime time) {
    return time >= drawing.contents->start && time <= drawing.contents->end;
}

QString withUnit(const std::string& value, const ChartSeries& series) {
    return text(series.unit.empty() ? value : value + " " + series.unit);
}

/// One line for every pen that is to be seen; where `what` says nothing of it, "-".
template <typename What>
std::vector<ReadoutLine> linesOf(const ChartDrawing& drawing, const What& what) {
    std::vector<ReadoutLine> lines;
    for (std::size_t k = 0; k < ChartSeriesCount; ++k) {
        if (!drawing.shows(k)) continue;
        const ChartSeries& series = drawing.contents->series[k];
        const QString said = what(k, series);
        lines.push_back({k, text(series.name) + QStringLiteral(": ") +
                                (said.isEmpty() ? QStringLiteral("-") : said)});
    }
    return lines;
}

/// A box of titles with a line for each pen, kept within the sides of `bounds`; one that `flips`
/// goes to the other side of the cursor before it leaves them.
void paintBox(QPainter& painter, const ChartDrawing& drawing, const QRectF& bounds, QPointF corner,
              const QStringList& titles, const std::vector<ReadoutLine>& lines, bool flips) {
    const QFontMetricsF metrics(drawing.font);
    double width = 0;
    for (const QString& title : titles) width = std::max(width, metrics.horizontalAdvance(title));
    for (const ReadoutLine& line : lines)
        width = std::max(width, NumberRoom + metrics.horizontalAdvance(line.text));
    const double height = metrics.height() *
                          static_cast<double>(titles.size() + static_cast<qsizetype>(lines.size()));
    QRectF box(corner, QSizeF(width + 2 * Padding, height + 2 * Padding));
    if (flips && box.right() > bounds.right()) box.moveRight(corner.x() - 2 * FromCursor);
    box.moveLeft(std::max(box.left(), bounds.left()));

    QColor back = drawing.colors.background;
    back.setAlpha(230);
    painter.setPen(drawing.colors.text);
    painter.setBrush(back);
    painter.drawRect(box);
    painter.setBrush(Qt::NoBrush);

    QRectF line(box.left() + Padding, box.top() + Padding, width, metrics.height());
    painter.setFont(drawing.font);
    for (const QString& title : titles) {
        painter.drawText(line, Qt::AlignVCenter, title);
        line.translate(0, metrics.height());
    }
    for (const ReadoutLine& readout : lines) {
        paintPenNumber(painter, drawing, readout.series,
                       {line.left() + NumberRoom / 2 - 2, line.center().y()});
        painter.setFont(drawing.font);
        painter.setPen(drawing.colors.text);
        painter.drawText(line.adjusted(NumberRoom, 0, 0, 0), Qt::AlignVCenter, readout.text);
        line.translate(0, metrics.height());
    }
}

void paintCursorLine(QPainter& painter, const ChartDrawing& drawing, const ChartGeometry& geometry,
                     ChartTime at) {
    const QRectF& plot = geometry.plot();
    const double x = geometry.xOf(at);
    painter.setPen(QPen(drawing.colors.text, 1));
    painter.drawLine(QPointF(x, plot.top()), QPointF(x, plot.bottom()));
    for (std::size_t k = 0; k < ChartSeriesCount; ++k) {
        if (!drawing.shows(k)) continue;
        const auto sample = sampleAt(*drawing.contents, k, at);
        if (!sample) continue;
        const QPointF place(geometry.xOf(sample->time), geometry.yOf(k, sample->value));
        if (!plot.adjusted(-1, -1, 1, 1).contains(place)) continue;
        painter.setPen(QPen(drawing.colors.text, 1));
        painter.setBrush(drawing.penColors[k]);
        painter.drawEllipse(place, 4, 4);
        painter.setBrush(Qt::NoBrush);
    }
    paintBox(painter, drawing, plot, {x + FromCursor, plot.top() + FromCursor},
             {text(timeText(at, drawing.locale))}, cursorReadout(drawing, at), true);
}

void paintMarkers(QPainter& painter, const ChartDrawing& drawing, const ChartGeometry& geometry,
                  const ChartView& view) {
    const QRectF& plot = geometry.plot();
    const auto& markers = view.markers();
    const QFontMetricsF metrics(drawing.font);
    painter.setFont(drawing.font);
    for (std::size_t m = 0; m < markers.size(); ++m) {
        if (!markers[m] || !inView(drawing, *markers[m])) continue;
        const double x = geometry.xOf(*markers[m]);
        painter.setPen(QPen(drawing.colors.text, 1, Qt::DashLine));
        painter.drawLine(QPointF(x, plot.top()), QPointF(x, plot.bottom()));
        const QRectF flag(x - 8, plot.top() - metrics.height(), 16, metrics.height());
        painter.fillRect(flag, drawing.colors.text);
        painter.setPen(drawing.colors.background);
        painter.drawText(flag, Qt::AlignCenter, m == 0 ? QStringLiteral("A") : QStringLiteral("B"));
    }
    if (!markers[0] || !markers[1]) return;
    const QString title =
        QStringLiteral("A → B: ") + text(durationText(*markers[1] - *markers[0], drawing.locale));
    const auto lines = markerReadout(drawing, *markers[0], *markers[1]);
    const double height = metrics.height() * static_cast<double>(lines.size() + 1) + 2 * Padding;
    paintBox(painter, drawing, plot,
             {plot.left() + FromCursor, plot.bottom() - height - FromCursor}, {title}, lines,
             false);
}

}  // namespace

std::vector<ReadoutLine> cursorReadout(const ChartDrawing& drawing, ChartTime at) {
    return linesOf(drawing, [&](std::size_t k, const ChartSeries& series) -> QString {
        const auto sample = sampleAt(*drawing.contents, k, at);
        if (!sample) return {};
        return withUnit(valueText(sample->value, series.samples->kind, drawing.locale), series) +
               QStringLiteral("  (") + text(timeText(sample->time, drawing.locale)) +
               QLatin1Char(')');
    });
}

std::vector<ReadoutLine> markerReadout(const ChartDrawing& drawing, ChartTime from, ChartTime to) {
    return linesOf(drawing, [&](std::size_t k, const ChartSeries& series) -> QString {
        const auto first = sampleAt(*drawing.contents, k, from);
        const auto second = sampleAt(*drawing.contents, k, to);
        if (!first || !second) return {};
        return withUnit(computedText(second->value - first->value, drawing.locale), series);
    });
}

QString spokenReadout(const ChartDrawing& drawing, const ChartView& view) {
    if (!drawing.contents || !view.cursor()) return {};
    QStringList parts = {text(timeText(*view.cursor(), drawing.locale))};
    for (const ReadoutLine& line : cursorReadout(drawing, *view.cursor())) parts << line.text;
    return parts.join(QStringLiteral("; "));
}

void paintCursor(QPainter& painter, const ChartDrawing& drawing, const ChartGeometry& geometry,
                 const ChartView& view) {
    if (!drawing.contents) return;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    paintMarkers(painter, drawing, geometry, view);
    if (view.cursor() && inView(drawing, *view.cursor()))
        paintCursorLine(painter, drawing, geometry, *view.cursor());
    painter.restore();
}

}  // namespace velt::ui
