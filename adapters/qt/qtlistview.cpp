// SPDX-License-Identifier: MIT
#include "adapters/qt/qtlistview.h"

#include "adapters/qt/gridstyle.h"
#include "adapters/qt/indices.h"

#include <QHeaderView>
#include <QMouseEvent>

#include <algorithm>
#include <utility>

namespace velt::qt {

QtListView::QtListView(GatedControl& control, QTableView* view) : control_(control), view_(view) {
    setUp();
}

QtListView::QtListView(GatedControl& control, QTableView* view, std::vector<ListPicture> pictures)
    : control_(control), view_(view), model_(std::move(pictures)) {
    setUp();
}

void QtListView::setUp() {
    view_->setModel(&model_);
    setUpRows(*view_);
    view_->horizontalHeader()->hide();
    view_->setShowGrid(false);
    view_->setSelectionMode(QAbstractItemView::SingleSelection);
    view_->installEventFilter(this);
    view_->viewport()->installEventFilter(this);
    fitColumn();
    connect(view_, &QTableView::doubleClicked, this, [this] {
        control_.operatorInput([this] { DblClick.raise(); });
        activate();
    });
    connect(view_->selectionModel(), &QItemSelectionModel::currentRowChanged, this, [this] {
        // A row that the mouse has chosen is told of when the button goes up.
        if (!mouseDown_) control_.operatorInput([this] { Click.raise(); });
    });
}

QtListView::~QtListView() {
    if (view_) view_->setModel(nullptr);
}

void QtListView::Add(const std::string& key, const std::string& text) {
    if (!model_.add(key, text)) throw RuntimeError(ErrorNumber::KeyInUse);
}

std::string QtListView::Text(int row) const { return elementAt(model_.rows(), row - 1).text; }

std::string QtListView::Key(int row) const { return elementAt(model_.rows(), row - 1).key; }

int QtListView::RowOf(const std::string& key) const { return model_.rowOf(key) + 1; }

bool QtListView::Checked(int row) const { return elementAt(model_.rows(), row - 1).checked; }

void QtListView::Checked(int row, bool checked) {
    elementAt(model_.rows(), row - 1);
    model_.check(row - 1, checked);
}

int QtListView::SelectedItem() const {
    if (!view_) return 0;
    const QModelIndexList rows = view_->selectionModel()->selectedRows();
    return rows.isEmpty() ? 0 : rows.first().row() + 1;
}

void QtListView::AdjustColumns(int minimum, int column) {
    if (column != 0) throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
    minimumWidth_ = minimum;
    fitColumn();
}

void QtListView::ColumnWidth(int column, int twips) {
    if (column != 0) throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
    fitsColumn_ = false;
    if (view_) view_->setColumnWidth(0, std::max(0, twips / TwipsPerPixel));
}

void QtListView::Icon(int row, int icon) {
    elementAt(model_.rows(), row - 1);
    model_.setPicture(row - 1, icon);
}

void QtListView::fitColumn() {
    if (view_ && fitsColumn_)
        view_->setColumnWidth(0, std::max(minimumWidth_, view_->viewport()->width()));
}

void QtListView::activate() {
    if (SelectedItem() != 0) control_.operatorInput([this] { ItemActivate.raise(); });
}

bool QtListView::isOnCheckBox(const QPoint& position) const {
    const QModelIndex index = view_->indexAt(position);
    if (!index.isValid() || !(index.flags() & Qt::ItemIsUserCheckable)) return false;
    QStyleOptionViewItem option;
    option.initFrom(view_);
    option.rect = view_->visualRect(index);
    option.features = QStyleOptionViewItem::HasCheckIndicator | QStyleOptionViewItem::HasDisplay;
    return view_->style()
        ->subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &option, view_)
        .contains(position);
}

bool QtListView::eventFilter(QObject* watched, QEvent* event) {
    // A view that is being destroyed sends events, too, and is no table view any more.
    constexpr QEvent::Type Wanted[] = {QEvent::Resize, QEvent::KeyPress,
                                       QEvent::MouseButtonDblClick, QEvent::MouseButtonPress,
                                       QEvent::MouseButtonRelease};
    if (!std::ranges::count(Wanted, event->type()) || !view_) return false;
    switch (event->type()) {
        case QEvent::Resize: fitColumn(); break;
        case QEvent::KeyPress: {
            const int key = static_cast<QKeyEvent*>(event)->key();
            if (key == Qt::Key_Return || key == Qt::Key_Enter) activate();
            break;
        }
        case QEvent::MouseButtonDblClick:
            // On the check box itself its first click has toggled the mark: the second one would
            // take that back at once, here and again in the logic.
            ignoreRelease_ = isOnCheckBox(static_cast<QMouseEvent*>(event)->pos());
            if (ignoreRelease_) return true;
            break;
        case QEvent::MouseButtonPress:
            ignoreRelease_ = false;
            mouseDown_ = true;
            break;
        case QEvent::MouseButtonRelease:
            mouseDown_ = false;
            if (std::exchange(ignoreRelease_, false)) return true;
            control_.operatorInput([this] { Click.raise(); });
            break;
        default: break;
    }
    return QObject::eventFilter(watched, event);
}

}  // namespace velt::qt
