// SPDX-License-Identifier: MIT
#include "widgets/internal/resultgrid.h"

#include <QEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QVBoxLayout>

namespace velt::ui {

namespace {

constexpr int EmptyMargin = 6;  // pixels

}  // namespace

void ResultGrid::setEmptyText(const QString& text) {
    if (text == emptyText_) return;
    emptyText_ = text;
    viewport()->update();
}

void ResultGrid::paintEvent(QPaintEvent* event) {
    QTableView::paintEvent(event);
    if (!model() || model()->columnCount() == 0 || model()->rowCount() > 0) return;
    QPainter painter(viewport());
    painter.setPen(palette().color(QPalette::Text));
    painter.drawText(viewport()->rect().adjusted(EmptyMargin, 0, -EmptyMargin, 0),
                     Qt::AlignCenter | Qt::TextWordWrap, emptyText_);
}

QItemSelectionModel::SelectionFlags ResultGrid::selectionCommand(const QModelIndex& index,
                                                                 const QEvent* event) const {
    if (event && event->type() == QEvent::KeyPress) {
        const auto* key = static_cast<const QKeyEvent*>(event);
        const bool moves = key->key() != Qt::Key_Space && key->key() != Qt::Key_Select;
        if (moves && key->modifiers() == Qt::ControlModifier) {
            const QKeyEvent plain(QEvent::KeyPress, key->key(), Qt::NoModifier);
            return QTableView::selectionCommand(index, &plain);
        }
    }
    return QTableView::selectionCommand(index, event);
}

GridArea::GridArea(ResultGrid* grid, const QString& hint, QWidget* parent) : QWidget(parent) {
    auto* label = new QLabel(hint, this);
    label->setAlignment(Qt::AlignCenter);
    label->setWordWrap(true);
    label->setFrameShape(QFrame::StyledPanel);
    label->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Expanding);
    hint_ = label;

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(hint_);
    layout->addWidget(grid);
    grid->hide();
    grid->installEventFilter(this);
}

bool GridArea::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::ShowToParent) hint_->hide();
    if (event->type() == QEvent::HideToParent) hint_->show();
    return QWidget::eventFilter(watched, event);
}

}  // namespace velt::ui
