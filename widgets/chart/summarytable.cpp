// SPDX-License-Identifier: MIT
#include "widgets/chart/summarytable.h"

#include "widgets/chart/chartsummary.h"
#include "widgets/chart/curvepainter.h"
#include "widgets/chart/trendchart.h"

#include <QHeaderView>
#include <QIcon>
#include <QPixmap>

namespace velt::ui {
namespace {

constexpr int RowHeight = 20;
constexpr int IconSize = 15;

QIcon penIcon(const ChartDrawing& drawing, std::size_t series) {
    constexpr int Fine = 3;  // sharp on any screen
    QPixmap pixmap(IconSize * Fine, IconSize * Fine);
    pixmap.setDevicePixelRatio(Fine);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    paintPenNumber(painter, drawing, series, {IconSize / 2.0, IconSize / 2.0});
    return QIcon(pixmap);
}

}  // namespace

SummaryTable::SummaryTable(const TrendChart& chart, QWidget* parent)
    : QTableWidget(0, static_cast<int>(summaryHeads().size()), parent), chart_(chart) {
    setAccessibleName(QStringLiteral("Valori in vista"));
    setHorizontalHeaderLabels(summaryHeads());
    setEditTriggers(NoEditTriggers);
    setSelectionBehavior(SelectRows);
    setTabKeyNavigation(false);
    verticalHeader()->hide();
    verticalHeader()->setDefaultSectionSize(RowHeight);
    horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    horizontalHeader()->setSectionResizeMode(SummaryNameColumn, QHeaderView::Stretch);
    horizontalHeader()->setHighlightSections(false);
    setFixedHeight(horizontalHeader()->sizeHint().height() +
                   RowHeight * static_cast<int>(ChartSeriesCount) + 2 * frameWidth());
    connect(&chart, &TrendChart::viewChanged, this, &SummaryTable::refresh);
}

void SummaryTable::refresh() {
    const auto rows = summaryOf(chart_.drawing());
    setRowCount(static_cast<int>(rows.size()));
    for (int r = 0; r < rowCount(); ++r) {
        const SummaryRow& row = rows[static_cast<std::size_t>(r)];
        const QStringList texts = row.texts();
        for (int c = 0; c < columnCount(); ++c) {
            auto* cell = new QTableWidgetItem(texts[c]);
            cell->setTextAlignment(isSummaryNumber(c) ? Qt::AlignRight | Qt::AlignVCenter
                                                      : Qt::AlignLeft | Qt::AlignVCenter);
            if (c == 0) cell->setIcon(penIcon(chart_.drawing(), row.series));
            setItem(r, c, cell);
        }
    }
}

}  // namespace velt::ui
