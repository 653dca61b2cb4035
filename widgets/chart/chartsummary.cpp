// SPDX-License-Identifier: MIT
#include "widgets/chart/chartsummary.h"

#include "adapters/qt/text.h"
#include "trendviewer/readout.h"

namespace velt::ui {

QStringList summaryHeads() {
    return {QStringLiteral("Penna"),   QStringLiteral("Trend"), QStringLiteral("Minimo"),
            QStringLiteral("Massimo"), QStringLiteral("Media"), QStringLiteral("Ultimo"),
            QStringLiteral("Unità")};
}

std::vector<SummaryRow> summaryOf(const ChartDrawing& drawing) {
    std::vector<SummaryRow> rows;
    for (std::size_t k = 0; k < ChartSeriesCount; ++k) {
        if (!drawing.shows(k)) continue;
        const ChartSeries& series = drawing.contents->series[k];
        const QString none = QStringLiteral("-");
        SummaryRow row{k, qt::toQt(series.name), none, none, none, none, qt::toQt(series.unit)};
        if (!series.description.empty())
            row.name += QStringLiteral(" – ") + qt::toQt(series.description);
        if (series.samples && series.curve && series.curve->statistics.count > 0) {
            const ChartStatistics& found = series.curve->statistics;
            const auto text = [&](double value) {
                return qt::toQt(valueText(value, series.samples->kind, drawing.locale));
            };
            row.minimum = text(found.minimum);
            row.maximum = text(found.maximum);
            row.mean = qt::toQt(computedText(found.mean, drawing.locale));
            row.last = text(found.last);
        }
        rows.push_back(std::move(row));
    }
    return rows;
}

}  // namespace velt::ui
