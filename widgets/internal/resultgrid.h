// SPDX-License-Identifier: MIT
#pragma once

#include <QTableView>

namespace velt::ui {

/// A table that says so when it has no rows: when a query had no result, or why there is none.
class ResultGrid : public QTableView {
    Q_OBJECT

public:
    using QTableView::QTableView;
    [[nodiscard]] const QString& emptyText() const { return emptyText_; }
    void setEmptyText(const QString& text);

protected:
    void paintEvent(QPaintEvent* event) override;
    /// Ctrl with a key that moves takes the selection along: a current row that is not the selected
    /// one would be two answers to "which record is this?".
    [[nodiscard]] QItemSelectionModel::SelectionFlags selectionCommand(
        const QModelIndex& index, const QEvent* event = nullptr) const override;

private:
    QString emptyText_;
};

/// The place of a grid: shows a hint as long as the grid is invisible.
class GridArea : public QWidget {
    Q_OBJECT

public:
    /// Takes the grid, and hides it.
    GridArea(ResultGrid* grid, const QString& hint, QWidget* parent = nullptr);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* hint_;
};

}  // namespace velt::ui
