// SPDX-License-Identifier: MIT
#include "widgets/internal/columnfitter.h"

#include <QEvent>
#include <QHeaderView>

#include <algorithm>

namespace velt::ui {

ColumnFitter::ColumnFitter(QTableView* view, int minimum)
    : QObject(view), view_(view), minimum_(minimum) {
    view->viewport()->installEventFilter(this);
    fit();
}

bool ColumnFitter::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Resize) fit();
    return QObject::eventFilter(watched, event);
}

void ColumnFitter::fit() {
    const QHeaderView* header = view_->horizontalHeader();
    if (header->count() == 0) return;
    const int others = header->length() - header->sectionSize(0);
    view_->setColumnWidth(0, std::max(minimum_, view_->viewport()->width() - others));
}

}  // namespace velt::ui
