// SPDX-License-Identifier: MIT
#include "widgets/chart/chartsheet.h"

#include "widgets/chart/chartpainter.h"
#include "widgets/chart/chartsummary.h"
#include "widgets/chart/curvepainter.h"

#include <QFontMetricsF>

#include <algorithm>

namespace velt::ui {
namespace {

constexpr double Between = 14;  // columns
constexpr double Margin = 8;
constexpr double ScreenDpi = 96;  // of logical pixels

/// Paints the summary; the name gets the room that the others leave.
void paintSummary(QPainter& painter, const QRectF& area, const ChartDrawing& drawing,
                  const std::vector<SummaryRow>& rows) {
    const QFontMetricsF metrics(drawing.font);
    const QStringList heads = summaryHeads();
    std::vector<double> widths;
    for (const QString& head : heads) widths.push_back(metrics.horizontalAdvance(head));
    for (const SummaryRow& row : rows) {
        const QStringList texts = row.texts();
        for (int c = 0; c < texts.size(); ++c)
            widths[std::size_t(c)] =
                std::max(widths[std::size_t(c)], metrics.horizontalAdvance(texts[c]));
    }
    double others = 0;
    for (std::size_t c = 0; c < widths.size(); ++c)
        others += Between + (c == SummaryNameColumn ? 0 : widths[c]);
    widths[SummaryNameColumn] = std::clamp(area.width() - others, 0.0, widths[SummaryNameColumn]);

    double y = area.top();
    const auto paintLine = [&](const QStringList& texts) {
        double x = area.left();
        for (int c = 0; c < texts.size(); ++c) {
            const double width = widths[std::size_t(c)];
            const int side = isSummaryNumber(c) ? Qt::AlignRight : Qt::AlignLeft;
            painter.drawText(QRectF(x, y, width, metrics.height()), Qt::AlignVCenter | side,
                             c == SummaryNameColumn
                                 ? metrics.elidedText(texts[c], Qt::ElideRight, width)
                                 : texts[c]);
            x += width + Between;
        }
        y += metrics.height();
    };
    painter.setFont(drawing.font);
    painter.setPen(drawing.colors.text);
    paintLine(heads);
    for (const SummaryRow& row : rows) {
        QStringList texts = row.texts();
        texts[0].clear();
        paintPenNumber(painter, drawing, row.series,
                       {area.left() + widths[0] / 2, y + metrics.height() / 2});
        painter.setFont(drawing.font);
        painter.setPen(drawing.colors.text);
        paintLine(texts);
    }
}

}  // namespace

void paintSheet(QPainter& painter, const QRectF& area, const ChartDrawing& drawing) {
    painter.fillRect(area, drawing.colors.background);
    painter.setRenderHint(QPainter::Antialiasing);
    const std::vector<SummaryRow> rows = summaryOf(drawing);
    const double lines = rows.empty() ? 0 : static_cast<double>(rows.size()) + 1;
    const double height = lines * QFontMetricsF(drawing.font).height();
    const QRectF inner = area.adjusted(Margin, Margin, -Margin, -Margin);
    paintChart(painter, inner.adjusted(0, 0, 0, rows.empty() ? 0 : -height - Margin), drawing);
    if (rows.empty()) return;
    paintSummary(painter, QRectF(inner.left(), inner.bottom() - height, inner.width(), height),
                 drawing, rows);
}

QImage sheetImage(const ChartDrawing& drawing, const QSize& size, double scale) {
    QImage image(size * scale, QImage::Format_RGB32);
    image.setDevicePixelRatio(scale);
    QPainter painter(&image);
    paintSheet(painter, QRectF(QPointF(0, 0), QSizeF(size)), drawing);
    return image;
}

bool printSheet(QPagedPaintDevice& device, ChartDrawing drawing) {
    drawing.colors = ChartColors{};
    QPainter painter;
    if (!painter.begin(&device)) return false;
    const double scale = device.logicalDpiX() / ScreenDpi;
    painter.scale(scale, scale);
    paintSheet(painter, QRectF(0, 0, device.width() / scale, device.height() / scale), drawing);
    return painter.end();
}

}  // namespace velt::ui
