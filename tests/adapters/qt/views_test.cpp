// SPDX-License-Identifier: MIT
// What the list and the grid do beyond the widget contract, and their models.
#include "adapters/qt/qtdatagrid.h"
#include "adapters/qt/qtlistview.h"
#include "tests/adapters/qt/testcontrol.h"
#include "tests/fakes/fakedatabase.h"
#include "tests/qtmain.h"

#include <QAbstractItemModelTester>
#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>

#include <gmock/gmock.h>

namespace velt::qt {
namespace {

using testing::ElementsAre;

constexpr auto Warn = QAbstractItemModelTester::FailureReportingMode::Warning;

TEST(CheckListModelTest, IsAModel) {
    CheckListModel model;
    const QAbstractItemModelTester tester(&model, Warn);
    for (const char* text : {"a", "b", "c"}) EXPECT_TRUE(model.add("", text));
    EXPECT_TRUE(model.setData(model.index(1, 0), Qt::Checked, Qt::CheckStateRole));
    EXPECT_FALSE(model.setData(model.index(1, 0), "text", Qt::EditRole));
    model.clear();
    EXPECT_TRUE(model.add("", "d"));
}

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

TEST_F(ListTest, TheKeyboardReachesEveryMark) {
    view->setFocus();
    view->setCurrentIndex(view->model()->index(0, 0));
    QTest::keyClick(view, Qt::Key_Down);
    QTest::keyClick(view, Qt::Key_Space);
    EXPECT_TRUE(list.Checked(2));
    QTest::keyClicks(view, "rtu03");
    QTest::keyClick(view, Qt::Key_Space);
    EXPECT_TRUE(list.Checked(3));
}

TEST_F(ListTest, TheColumnFillsTheListButIsNotNarrowerThanTheMinimum) {
    list.AdjustColumns(150, 0);
    EXPECT_EQ(view->columnWidth(0), view->viewport()->width());
    view->resize(100, 200);
    settle();
    EXPECT_EQ(view->columnWidth(0), 150);
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
    void press(int key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(view, static_cast<Qt::Key>(key), modifiers);
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

TEST_F(GridTest, TheRecordGoesWithTheCurrentRow) {
    EXPECT_EQ(view->currentIndex().row(), 0);
    const struct {
        int key;
        Qt::KeyboardModifiers modifiers;
        std::int32_t position;
    } keys[] = {{Qt::Key_Down, {}, 2},
                {Qt::Key_End, Qt::ControlModifier, 1000},
                {Qt::Key_Up, {}, 999},
                {Qt::Key_Home, Qt::ControlModifier, 1},
                {Qt::Key_Down, Qt::ShiftModifier, 2}};
    for (const auto& k : keys) {
        press(k.key, k.modifiers);
        EXPECT_EQ(data.AbsolutePosition(), k.position);
        EXPECT_EQ(recordset->AbsolutePosition(), k.position);
    }
    EXPECT_EQ(view->selectionModel()->selectedRows().size(), 2) << "the selection stays";
    press(Qt::Key_PageDown);
    EXPECT_GT(data.AbsolutePosition(), 5);
}

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

TEST_F(GridTest, CopiesTheSelectedRowsInTheirOrder) {
    const auto select = QItemSelectionModel::Select | QItemSelectionModel::Rows;
    view->clearSelection();
    view->selectionModel()->select(view->model()->index(2, 0), select);
    view->selectionModel()->select(view->model()->index(0, 1), select);
    view->setFocus();
    press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text().toStdString(), "31/12/1899\t1\n02/01/1900\t3");
    view->clearSelection();
    press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_FALSE(QGuiApplication::clipboard()->text().isEmpty()) << "nothing to copy";
}

TEST_F(GridTest, ADoubleClickOnTheHeadersDividerIsAResizeToo) {
    std::vector<int> resized;
    grid.ColResize.subscribe([&](int column) { resized.push_back(column); });
    grid.ColumnWidth(0, 300 * TwipsPerPixel);
    QHeaderView* header = view->horizontalHeader();
    const QPoint divider(299, header->height() / 2);
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, divider);
    settle();
    EXPECT_THAT(resized, ElementsAre());
    QTest::mouseDClick(header->viewport(), Qt::LeftButton, {}, divider);
    QTest::mouseRelease(header->viewport(), Qt::LeftButton, {}, divider);
    settle();
    EXPECT_THAT(resized, ElementsAre(0));
    EXPECT_LT(grid.ColumnWidth(0), 200 * TwipsPerPixel);
}

TEST_F(GridTest, LooksAsItWasSetUp) {
    grid.FontSize(8);
    grid.HeadFont(8, true);
    grid.AllowRowSizing(false);
    EXPECT_EQ(view->font().pointSize(), 8);
    EXPECT_TRUE(view->horizontalHeader()->font().bold());
    EXPECT_EQ(view->rowHeight(0), 20);
    EXPECT_EQ(view->verticalHeader()->sectionResizeMode(0), QHeaderView::Fixed);
    EXPECT_FALSE(view->model()->flags(view->model()->index(0, 0)).testFlag(Qt::ItemIsEditable));
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
    EXPECT_EQ(list.SelectedItem(), 0);
    list.AdjustColumns(150, 0);
    list.Clear();
    fakes::FakeDatabaseState database;
    const auto recordset = std::make_shared<fakes::FakeRecordset>(database);
    database.answers["q"] = std::make_shared<fakes::FakeRowSet>(
        std::vector<std::string>{"a"}, std::vector<std::vector<Variant>>{{"x"}});
    recordset->Open("q", std::make_shared<fakes::FakeConnection>(database), 3, 1, -1);
    data.Recordset(recordset);
    data.Caption("Record 1 of 1");
    grid.Visible(true);
    grid.ReBind();
    grid.FontSize(8);
    grid.HeadFont(8, true);
    grid.AllowRowSizing(false);
    grid.ColumnWidth(0, 100);
    EXPECT_EQ(grid.ColumnCount(), 1);
}

}  // namespace
}  // namespace velt::qt
