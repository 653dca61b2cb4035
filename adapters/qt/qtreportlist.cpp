// SPDX-License-Identifier: MIT
#include "adapters/qt/qtreportlist.h"

#include "adapters/qt/gridstyle.h"
#include "adapters/qt/indices.h"
#include "adapters/qt/reportdelegate.h"

#include <QAction>
#include <QHeaderView>

#include <utility>

namespace velt::qt {
namespace {

constexpr int FlushInterval = 100;  // ms

}  // namespace

QtReportList::QtReportList(GatedControl& control, QTableView* view, ReportLayout layout,
                           const Locale& locale)
    : control_(control), view_(view), model_(std::move(layout), locale) {
    view->setModel(&model_);
    view->setItemDelegate(new ReportDelegate(view));
    setUpRows(*view);
    view->setSelectionMode(QAbstractItemView::SingleSelection);
    QHeaderView* header = view->horizontalHeader();
    header->setSectionsClickable(true);
    header->setSortIndicatorShown(true);
    connect(header, &QHeaderView::sectionClicked, this,
            [this](int column) { clickColumn(column); });
    connect(view->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            [this] { Shown.raise(); });
    addSortActions();
    showSort();

    flushTimer_.setSingleShot(true);
    flushTimer_.setInterval(FlushInterval);
    connect(&flushTimer_, &QTimer::timeout, this, [this] { flush(); });
}

QtReportList::~QtReportList() {
    if (view_) view_->setModel(nullptr);
}

/// The way to sort without a mouse.
void QtReportList::addSortActions() {
    for (int column = 0; column < model_.columnCount(); ++column) {
        const QString caption =
            model_.headerData(column, Qt::Horizontal, Qt::DisplayRole).toString();
        auto* action = new QAction(QStringLiteral("Ordina per \"%1\"").arg(caption), this);
        connect(action, &QAction::triggered, this, [this, column] { clickColumn(column); });
        view_->addAction(action);
    }
    view_->setContextMenuPolicy(Qt::ActionsContextMenu);
}

void QtReportList::clickColumn(int column) {
    showSort();  // the header has turned its sign by itself: whether it turns is for the logic
    control_.operatorInput([this, column] { ColumnClick.raise(column); });
}

void QtReportList::Clear() {
    model_.clear();
    Shown.raise();
}

void QtReportList::Add(const std::string& key, const std::string& text,
                       const std::string& smallIcon) {
    if (!model_.add(key, text, smallIcon)) throw RuntimeError(ErrorNumber::KeyInUse);
    schedule();
}

std::string QtReportList::Key(int row) const { return elementAt(model_.rows(), row - 1).key; }

void QtReportList::SubItem(int row, int column, const std::string& text) {
    elementAt(elementAt(model_.rows(), row - 1).texts, column);
    model_.setText(row - 1, column, text);
    if (model_.isDirty()) schedule();
}

int QtReportList::SelectedItem() const {
    if (!view_) return 0;
    const QModelIndexList rows = view_->selectionModel()->selectedRows();
    return rows.isEmpty() ? 0 : model_.rowAt(rows.first().row()) + 1;
}

void QtReportList::SortKey(int column) {
    if (column < 0 || column >= model_.columnCount())
        throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
    sort(column, model_.sortOrder());
}

ReportList::Order QtReportList::SortOrder() const {
    return model_.sortOrder() == Qt::AscendingOrder ? Order::Ascending : Order::Descending;
}

void QtReportList::SortOrder(Order order) {
    sort(model_.sortColumn(), order == Order::Ascending ? Qt::AscendingOrder : Qt::DescendingOrder);
}

void QtReportList::sort(int column, Qt::SortOrder order) {
    model_.sortBy(column, order);
    showSort();
    flush();
    if (view_) view_->scrollTo(view_->currentIndex());
}

void QtReportList::filter(const QString& text, bool onlyAbnormal) {
    model_.filter(text, onlyAbnormal);
    flush();
}

void QtReportList::showSort() {
    if (view_) view_->horizontalHeader()->setSortIndicator(model_.sortColumn(), model_.sortOrder());
}

void QtReportList::schedule() {
    if (!flushTimer_.isActive()) flushTimer_.start();
}

void QtReportList::flush() {
    flushTimer_.stop();
    // A view whose current row goes selects a neighbour: a value would be written to another item.
    const QModelIndex current = view_ ? view_->currentIndex() : QModelIndex();
    const int selected = SelectedItem();
    const bool hides = (current.isValid() && !model_.passes(model_.rowAt(current.row()))) ||
                       (selected != 0 && !model_.passes(selected - 1));
    if (hides) view_->selectionModel()->clear();
    model_.flush();
    Shown.raise();
}

}  // namespace velt::qt
