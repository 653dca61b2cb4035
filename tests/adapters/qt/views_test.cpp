// SPDX-License-Identifier: MIT
// What the list and the grid do beyond the widget contract, and their models.
#include "tests/adapters/qt/widgetcontract.h"

#include <QAbstractItemModelTester>

#include <array>

namespace velt {
namespace {

TEST(RowSetModelTest, IsAModelWhoseColumnsAreThoseTaken) {
    qt::RowSetModel model(Locale::italian());
    const QAbstractItemModelTester tester(&model,
                                          QAbstractItemModelTester::FailureReportingMode::Warning);
    model.setRows(std::make_shared<fakes::FakeRowSet>(
        std::vector<std::string>{"a", "b"},
        std::vector<std::vector<Variant>>{{"line 1\r\nline 2\tend", 1.5}}));
    EXPECT_EQ(model.columnCount(), 0);
    model.setCaptions({"a", "b", "of an earlier query"});
    EXPECT_EQ(model.index(0, 0).data(), "line 1 line 2 end");
    EXPECT_EQ(model.index(0, 0).data(Qt::ToolTipRole), "line 1\r\nline 2\tend");
    EXPECT_EQ(model.index(0, 1).data(), "1,5");
    EXPECT_EQ(model.index(0, 2).data(), QVariant());
    model.setRows(nullptr);
    EXPECT_EQ(model.rowCount(), 0);
}

class ViewsTest : public WidgetContract<Real> {};

TEST_F(ViewsTest, ADoubleClickOnAListFlipsOnceWhereverItHits) {
    auto& list = side.list;
    for (int row = 1; row <= 3; ++row) list.Add("", "RTU");
    list.DblClick.subscribe([&] {
        const int row = list.SelectedItem();
        list.Checked(row, !list.Checked(row));
    });
    side.qList->scrollToTop();
    const auto checkBox = [&](int row) { return QPoint(10, side.place(side.qList, row).y()); };
    const struct {
        QPoint place;
        bool isDouble;
        std::array<bool, 3> marks;
    } steps[] = {{checkBox(1), false, {true, false, false}},
                 {checkBox(1), false, {false, false, false}},
                 {checkBox(2), true, {false, true, false}},
                 {checkBox(2), false, {false, false, false}},  // the next click counts again
                 {side.place(side.qList, 3), true, {false, false, true}},
                 {{50, side.qList->viewport()->height() - 2}, true, {false, false, true}}};
    QWidget* viewport = side.qList->viewport();
    for (const auto& step : steps) {
        QTest::mouseClick(viewport, Qt::LeftButton, {}, step.place);
        if (step.isDouble) {
            settle();
            QTest::mouseDClick(viewport, Qt::LeftButton, {}, step.place);
            QTest::mouseRelease(viewport, Qt::LeftButton, {}, step.place);
        }
        settle();
        EXPECT_EQ((std::array{list.Checked(1), list.Checked(2), list.Checked(3)}), step.marks);
    }
}

TEST_F(ViewsTest, TheButtonsMoveTheCurrentRowAndStopAtTheEnds) {
    const auto recordset = bind(1000);
    side.grid.ReBind();
    const auto buttons = side.qBar->findChildren<qt::MoveButton*>();
    ASSERT_EQ(buttons.size(), 4);
    const std::pair<int, int> steps[] = {{2, 2}, {3, 1000}, {2, 1000}, {1, 999}, {0, 1}, {1, 1}};
    for (const auto& [button, position] : steps) {
        QTest::mouseClick(buttons[button], Qt::LeftButton);
        settle();
        EXPECT_EQ(side.qGrid->currentIndex().row() + 1, position);
        EXPECT_EQ(recordset->AbsolutePosition(), position);
    }
    // Quick keys end where the last one went.
    for (int i = 0; i < 5; ++i) QTest::keyClick(side.qGrid, Qt::Key_Down);
    settle();
    EXPECT_EQ(side.data.AbsolutePosition(), 6);
    EXPECT_EQ(side.qGrid->currentIndex().row(), 5);
    side.data.Recordset(nullptr);
    EXPECT_FALSE(buttons[0]->isEnabled());
    EXPECT_EQ(side.qGrid->model()->rowCount(), 0);
}

TEST_F(ViewsTest, AdaptersAnswerForTheirWidgetsAlsoWhenThoseAreGone) {
    side.combo.AddItem("uno");
    EXPECT_EQ(side.qCombo->currentIndex(), -1) << "Qt would select it";
    side.list.Add("k", "RTU01");
    side.list.Checked(1, true);
    side.window.reset();
    EXPECT_TRUE(side.list.Checked(side.list.RowOf("k")));
    side.list.AdjustColumns(150, 0);
    side.list.Clear();
    bind(1);
    side.grid.ReBind();
    side.grid.ColumnWidth(0, 100);
    EXPECT_EQ(side.grid.ColumnCount(), 2);
}

}  // namespace
}  // namespace velt
