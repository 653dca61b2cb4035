// SPDX-License-Identifier: MIT
#pragma once

#include <QTableView>

namespace velt::ui {

/// Gives the first column of a table the room that the others leave, and `minimum` pixels at
/// least. Belongs to the table.
class ColumnFitter : public QObject {
    Q_OBJECT

public:
    ColumnFitter(QTableView* view, int minimum);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void fit();

    QTableView* view_;
    int minimum_;
};

}  // namespace velt::ui
