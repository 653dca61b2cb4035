// SPDX-License-Identifier: MIT
#include "widgets/internal/resultgrid.h"

#include "tests/qtmain.h"

#include <QStandardItemModel>

#include <gtest/gtest.h>

namespace velt::ui {
namespace {

TEST(ResultGrid, TheSelectedRowIsTheCurrentOneWhateverKeyMovedIt) {
    QStandardItemModel model(20, 3);
    ResultGrid grid;
    grid.setModel(&model);
    grid.setSelectionBehavior(QAbstractItemView::SelectRows);
    grid.setSelectionMode(QAbstractItemView::ExtendedSelection);
    grid.setCurrentIndex(model.index(5, 0));
    struct Case {
        Qt::Key key;
        int row;
    };
    for (const auto& [key, row] : {Case{Qt::Key_End, 19}, Case{Qt::Key_Home, 0},
                                   Case{Qt::Key_Down, 1}, Case{Qt::Key_Up, 0}}) {
        QTest::keyClick(&grid, key, Qt::ControlModifier);
        const QModelIndexList selected = grid.selectionModel()->selectedRows();
        ASSERT_EQ(selected.size(), 1) << key;
        EXPECT_EQ(selected.first().row(), row) << key;
        EXPECT_EQ(grid.currentIndex().row(), row) << key;
    }
}

}  // namespace
}  // namespace velt::ui
