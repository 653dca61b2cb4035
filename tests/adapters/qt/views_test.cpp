// SPDX-License-Identifier: MIT
// What the list and the grid do beyond the widget contract, and their models.
#include "adapters/qt/qtdatagrid.h"
#include "adapters/qt/qtlistview.h"
#include "tests/adapters/qt/testcontrol.h"
#include "tests/fakes/fakedatabase.h"
#include "tests/qtmain.h"

#include <QAbstractItemModelTester>
#include <QHeaderView>

#include <gtest/gtest.h>

namespace velt::qt {
namespace {

constexpr auto Warn = QAbstractItemModelTester::FailureReportingMode::Warning;

TEST(RowSetModelTest, IsAModelWhoseColumnsAreThoseTaken) {
    RowSetModel model(Locale::italian());
    const QAbstractItemModelTester tester(&model, Warn);
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

class ListTest : public testing::Test {
protected:
    ListTest() {
        for (const char* name : {"RTU01", "RTU02", "RTU03"}) list.Add("", name);
        list.DblClick.subscribe([this] {
            const int row = list.SelectedItem();
            list.Checked(row, !list.Checked(row));
        });
        view->resize(200, 200);
        window.show();
        settle();
    }
    QPoint checkBox(int row) const {
        return view->visualRect(view->model()->index(row - 1, 0)).topLeft() + QPoint(10, 10);
    }
    void click(const QPoint& place) {
        QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, place);
        settle();
    }
    void doubleClick(const QPoint& place) {
        click(place);
        QTest::mouseDClick(view->viewport(), Qt::LeftButton, {}, place);
        QTest::mouseRelease(view->viewport(), Qt::LeftButton, {}, place);
        settle();
    }

    QWidget window;
    QTableView* view = new QTableView(&window);
    std::shared_ptr<TestControl> control = std::make_shared<TestControl>(&window);
    QtListView list{*control, view};
};

TEST_F(ListTest, ADoubleClickFlipsOnceWhereverItHits) {
    click(checkBox(1));
    EXPECT_TRUE(list.Checked(1));
    click(checkBox(1));
    EXPECT_FALSE(list.Checked(1));
    doubleClick(checkBox(2));
    EXPECT_TRUE(list.Checked(2));
    click(checkBox(2));
    EXPECT_FALSE(list.Checked(2)) << "the next click counts again";
    doubleClick(checkBox(3) + QPoint(60, 0));
    EXPECT_TRUE(list.Checked(3));
    doubleClick(QPoint(50, 150));  // below the rows
    EXPECT_TRUE(list.Checked(3));
}

class GridTest : public testing::Test {
protected:
    GridTest() {
        std::vector<std::vector<Variant>> rows;
        for (int i = 1; i <= 1000; ++i) rows.push_back({Date(i), std::to_string(i)});
        database.answers["q"] =
            std::make_shared<fakes::FakeRowSet>(std::vector<std::string>{"a", "b"}, rows);
        view->resize(400, 300);
        window.show();
        recordset->Open("q", connection, ado::OpenStatic, ado::LockReadOnly, -1);
        data.Recordset(recordset);
        grid.ReBind();
        settle();
    }

    QWidget window;
    QTableView* view = new QTableView(&window);
    RecordBar* bar = new RecordBar(&window);
    std::shared_ptr<TestControl> control = std::make_shared<TestControl>(&window);
    InlineDispatcher dispatcher;
    QtDataControl data{*control, bar};
    QtDataGrid grid{*control, view, data, dispatcher, Locale::italian()};
    fakes::FakeDatabaseState database;
    std::shared_ptr<fakes::FakeConnection> connection =
        std::make_shared<fakes::FakeConnection>(database);
    std::shared_ptr<fakes::FakeRecordset> recordset =
        std::make_shared<fakes::FakeRecordset>(database);
};

TEST_F(GridTest, TheButtonsMoveTheCurrentRowAndStopAtTheEnds) {
    const auto buttons = bar->findChildren<MoveButton*>();
    ASSERT_EQ(buttons.size(), 4);
    const std::pair<int, int> steps[] = {{2, 2}, {3, 1000}, {2, 1000}, {1, 999}, {0, 1}, {1, 1}};
    for (const auto& [button, position] : steps) {
        QTest::mouseClick(buttons[button], Qt::LeftButton);
        settle();
        EXPECT_EQ(view->currentIndex().row() + 1, position);
        EXPECT_EQ(recordset->AbsolutePosition(), position);
    }
    for (const MoveButton* button : buttons) EXPECT_FALSE(button->accessibleName().isEmpty());
    data.Recordset(nullptr);
    EXPECT_FALSE(buttons[0]->isEnabled());
    EXPECT_EQ(view->model()->rowCount(), 0);
}

TEST_F(GridTest, QuickKeysEndWhereTheLastOneWent) {
    for (int i = 0; i < 5; ++i) QTest::keyClick(view, Qt::Key_Down);
    settle();
    EXPECT_EQ(data.AbsolutePosition(), 6);
    EXPECT_EQ(view->currentIndex().row(), 5);
}

TEST(DeadWidgetsTest, AdaptersKeepWhatTheyHeld) {
    auto window = std::make_unique<QWidget>();
    const auto control = std::make_shared<TestControl>(window.get());
    InlineDispatcher dispatcher;
    QtListView list(*control, new QTableView(window.get()));
    QtDataControl data(*control, new RecordBar(window.get()));
    QtDataGrid grid(*control, new QTableView(window.get()), data, dispatcher, Locale::italian());
    list.Add("k", "RTU01");
    list.Checked(1, true);
    window.reset();

    EXPECT_EQ(list.Count(), 1);
    EXPECT_TRUE(list.Checked(list.RowOf("k")));
    list.AdjustColumns(150, 0);
    list.Clear();
    fakes::FakeDatabaseState database;
    const auto recordset = std::make_shared<fakes::FakeRecordset>(database);
    database.answers["q"] = std::make_shared<fakes::FakeRowSet>(
        std::vector<std::string>{"a"}, std::vector<std::vector<Variant>>{{"x"}});
    recordset->Open("q", std::make_shared<fakes::FakeConnection>(database), 3, 1, -1);
    data.Recordset(recordset);
    grid.ReBind();
    grid.ColumnWidth(0, 100);
    EXPECT_EQ(grid.ColumnCount(), 1);
}

}  // namespace
}  // namespace velt::qt
