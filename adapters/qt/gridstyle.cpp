// SPDX-License-Identifier: MIT
#include "adapters/qt/gridstyle.h"

#include <QHeaderView>

#include <algorithm>

namespace velt::qt {
namespace {

constexpr int LowestRow = 20;  // pixels; leaves room for a check box
constexpr int RowMargin = 4;

}  // namespace

void setUpRows(QTableView& view) {
    view.setSelectionBehavior(QAbstractItemView::SelectRows);
    view.setEditTriggers(QAbstractItemView::NoEditTriggers);
    view.setTabKeyNavigation(false);
    view.setWordWrap(false);
    view.setCornerButtonEnabled(false);
    view.setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    view.horizontalHeader()->setHighlightSections(false);
    view.verticalHeader()->hide();
    view.verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    fitRowHeight(view);
}

void fitRowHeight(QTableView& view) {
    const int height = std::max(LowestRow, view.fontMetrics().height() + RowMargin);
    view.verticalHeader()->setMinimumSectionSize(height);
    view.verticalHeader()->setDefaultSectionSize(height);
}

}  // namespace velt::qt
