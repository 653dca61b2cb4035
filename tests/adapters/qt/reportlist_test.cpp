// SPDX-License-Identifier: MIT
// The table of texts: its contract, over the fake and over Qt, and what the real one adds.
#include "adapters/qt/qtreportlist.h"
#include "tests/adapters/qt/testcontrol.h"
#include "tests/fakes/fakereportlist.h"
#include "tests/qtmain.h"

#include <QAbstractItemModelTester>
#include <QHeaderView>
#include <QSignalSpy>

#include <gmock/gmock.h>

#include <memory>

namespace velt {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct FakeSide {
    fakes::FakeReportList list;
    void select(int row) { list.selected = row; }
    void clickColumn(int column) { list.ColumnClick.raise(column); }
};

struct RealSide {
    QWidget window;
    QTableView* view = new QTableView(&window);
    std::shared_ptr<qt::TestControl> control = std::make_shared<qt::TestControl>(&window);
    qt::QtReportList list{*control, view,
                          qt::ReportLayout{.captions = {"Item", "Valore", "Stato", "Ora"},
                                           .stateColumn = 2,
                                           .normalState = "Good",
                                           .pictures = {{"ok", {}}, {"bad", {{}, "rotto", true}}}},
                          Locale::italian()};
    QAbstractItemModelTester tester{view->model(),
                                    QAbstractItemModelTester::FailureReportingMode::Warning};

    RealSide() {
        view->resize(500, 300);
        window.resize(500, 300);
        window.show();
        settle();
    }
    ~RealSide() { settle(); }
    void select(int row) {
        flush();
        const std::string key = list.Key(row);
        for (int i = 0; i < view->model()->rowCount(); ++i) {
            QTest::mouseClick(view->viewport(), Qt::LeftButton, {},
                              view->visualRect(view->model()->index(i, 0)).center());
            if (list.Key(list.SelectedItem()) == key) return;
        }
        ADD_FAILURE() << "no row shows " << key;
    }
    void clickColumn(int column) {
        QHeaderView* header = view->horizontalHeader();
        QTest::mouseClick(header->viewport(), Qt::LeftButton, {},
                          {header->sectionViewportPosition(column) + 20, 5});
        settle();
    }
    /// Waits until what was assigned is in view.
    void flush() const {
        EXPECT_TRUE(eventually([this] { return list.shownCount() == list.Count(); }));
        QTest::qWait(150);
    }
    std::vector<std::string> shown(int column = 0) const {
        std::vector<std::string> texts;
        for (int i = 0; i < view->model()->rowCount(); ++i)
            texts.push_back(view->model()->index(i, column).data().toString().toStdString());
        return texts;
    }
};

template <typename Side>
class ReportListContract : public testing::Test {
protected:
    Side side;
};

using Sides = testing::Types<FakeSide, RealSide>;
TYPED_TEST_SUITE(ReportListContract, Sides);

template <typename Call>
void expectError(ErrorNumber number, Call&& call) {
    try {
        call();
        ADD_FAILURE() << "raised nothing";
    } catch (const RuntimeError& error) {
        EXPECT_TRUE(error.is(number)) << error.what();
    }
}

TYPED_TEST(ReportListContract, FindsRowsByKeyAndKeepsTheirNumbersWhateverIsShown) {
    ReportList& list = this->side.list;
    EXPECT_EQ(list.SelectedItem(), 0);
    EXPECT_EQ(list.SortKey(), 0);
    EXPECT_EQ(list.SortOrder(), ReportList::Order::Ascending);
    list.Add("I7", "zeta", "ok");
    list.Add("I8", "alfa", "bad");
    list.Add("I9", "mu", "no such picture");
    EXPECT_EQ(list.Count(), 3) << "at once";
    expectError(ErrorNumber::KeyInUse, [&] { list.Add("I8", "again", "ok"); });
    expectError(ErrorNumber::SubscriptOutOfRange, [&] { (void)list.Key(0); });
    expectError(ErrorNumber::SubscriptOutOfRange, [&] { list.SubItem(4, 1, "x"); });
    expectError(ErrorNumber::SubscriptOutOfRange, [&] { list.SubItem(1, 4, "x"); });
    this->side.select(2);
    list.SortOrder(ReportList::Order::Descending);
    list.SubItem(2, 1, "omega");
    list.SortKey(1);
    EXPECT_EQ(list.Count(), 3);
    EXPECT_EQ(list.RowOf("I9"), 3);
    EXPECT_EQ(list.RowOf("I1"), 0);
    EXPECT_EQ(list.Key(1), "I7");
    EXPECT_EQ(list.SelectedItem(), 2);
    list.Clear();
    EXPECT_EQ(list.Count(), 0);
    EXPECT_EQ(list.RowOf("I7"), 0);
    EXPECT_EQ(list.SelectedItem(), 0);
    EXPECT_EQ(list.SortKey(), 1);
    list.Add("I7", "again", "ok");
    EXPECT_EQ(list.RowOf("I7"), 1);
}

TYPED_TEST(ReportListContract, AClickOnAColumnIsTheLogicsToAnswer) {
    ReportList& list = this->side.list;
    std::vector<int> clicks;
    list.ColumnClick.subscribe([&](int column) { clicks.push_back(column); });
    this->side.clickColumn(2);
    this->side.clickColumn(0);
    this->side.clickColumn(0);
    EXPECT_THAT(clicks, ElementsAre(2, 0, 0));
    EXPECT_EQ(list.SortKey(), 0);
    EXPECT_EQ(list.SortOrder(), ReportList::Order::Ascending);
}

class ReportListTest : public testing::Test {
protected:
    void fill(int count) {
        for (int i = 1; i <= count; ++i)
            side.list.Add("I" + std::to_string(i), "RTU." + std::to_string(i), "ok");
        side.flush();
    }
    RealSide side;
    qt::QtReportList& list = side.list;
    QAbstractItemModel* model = side.view->model();
};

TEST_F(ReportListTest, ABurstIsShownInOneGo) {
    QSignalSpy inserted(model, &QAbstractItemModel::rowsInserted);
    fill(10000);
    EXPECT_EQ(inserted.size(), 1);
    EXPECT_EQ(model->rowCount(), 10000);

    QSignalSpy changed(model, &QAbstractItemModel::dataChanged);
    for (int turn = 0; turn < 3; ++turn)
        for (int row = 1; row <= 10000; ++row)
            for (int column = 1; column <= 3; ++column)
                list.SubItem(row, column, std::to_string(turn));
    EXPECT_EQ(changed.size(), 0) << "nothing yet";
    EXPECT_TRUE(eventually([&] { return changed.size() > 0; }));
    EXPECT_EQ(changed.size(), 1);
    EXPECT_EQ(side.shown(3).back(), "2");

    changed.clear();
    list.SubItem(5, 1, "new");
    list.SubItem(7, 1, "2");  // as it was
    EXPECT_TRUE(eventually([&] { return changed.size() > 0; }));
    ASSERT_EQ(changed.size(), 1);
    EXPECT_EQ(changed[0][0].toModelIndex().row(), 4);
    EXPECT_EQ(changed[0][1].toModelIndex().row(), 4);
}

TEST_F(ReportListTest, SortsStablyAndAgainWhenTheSortedTextsChange) {
    fill(12);
    EXPECT_THAT(side.shown(), ElementsAre("RTU.1", "RTU.2", "RTU.3", "RTU.4", "RTU.5", "RTU.6",
                                          "RTU.7", "RTU.8", "RTU.9", "RTU.10", "RTU.11", "RTU.12"));
    for (int row = 1; row <= 12; ++row) list.SubItem(row, 1, row % 2 == 0 ? "9" : "10");
    side.select(3);
    list.SortKey(1);
    EXPECT_EQ(side.view->horizontalHeader()->sortIndicatorSection(), 1);
    EXPECT_THAT(side.shown(), ElementsAre("RTU.2", "RTU.4", "RTU.6", "RTU.8", "RTU.10", "RTU.12",
                                          "RTU.1", "RTU.3", "RTU.5", "RTU.7", "RTU.9", "RTU.11"));
    list.SubItem(12, 1, "-1");
    EXPECT_TRUE(eventually([&] { return side.shown().front() == "RTU.12"; }));
    EXPECT_EQ(list.SelectedItem(), 3);
    EXPECT_EQ(side.view->currentIndex().row(), 7);
    QTest::keyClick(side.view, Qt::Key_Down);
    EXPECT_EQ(list.Key(list.SelectedItem()), "I5");
    list.SortOrder(ReportList::Order::Descending);
    EXPECT_THAT(side.shown(), ElementsAre("RTU.1", "RTU.3", "RTU.5", "RTU.7", "RTU.9", "RTU.11",
                                          "RTU.2", "RTU.4", "RTU.6", "RTU.8", "RTU.10", "RTU.12"));
    EXPECT_EQ(list.Key(list.SelectedItem()), "I5");
}

TEST_F(ReportListTest, TheFilterOnlyHidesAndNeverMovesTheSelection) {
    fill(20);
    for (int row = 1; row <= 20; ++row) list.SubItem(row, 2, row % 3 == 0 ? "Bad" : "Good");
    list.Add("I21", "rtu.121", "bad");
    list.SubItem(21, 2, "Good");
    side.flush();
    side.select(12);
    list.filter("Rtu.1", false);
    EXPECT_EQ(list.shownCount(), 12);
    EXPECT_EQ(list.SelectedItem(), 12);
    list.filter("rtu.1", true);
    EXPECT_THAT(side.shown(), ElementsAre("RTU.12", "RTU.15", "RTU.18", "rtu.121"));
    EXPECT_EQ(list.Count(), 21);
    EXPECT_EQ(list.SelectedItem(), 12);

    list.SubItem(12, 2, "Good");  // no neighbour may take its place
    EXPECT_TRUE(eventually([&] { return list.shownCount() == 3; }));
    EXPECT_EQ(list.SelectedItem(), 0);
    list.SubItem(16, 2, "Uncertain");
    EXPECT_TRUE(eventually([&] { return list.shownCount() == 4; }));
    list.filter("", false);
    EXPECT_EQ(list.shownCount(), 21);
    EXPECT_EQ(side.shown()[11], "RTU.12");
}

TEST_F(ReportListTest, WhatIsGoneIsGoneAtOnce) {
    fill(3);
    list.SubItem(1, 1, "5");
    list.Clear();
    EXPECT_EQ(model->rowCount(), 0);
    EXPECT_EQ(list.SelectedItem(), 0);
    list.Add("I1", "new", "ok");
    list.SubItem(1, 1, "6");
    side.flush();
    EXPECT_THAT(side.shown(1), ElementsAre("6"));
}

TEST_F(ReportListTest, AStateIsToldInWordsToo) {
    list.Add("I1", "a<b>", "bad");
    list.Add("I2", "b", "ok");
    list.SubItem(2, 2, "Good");
    side.flush();
    EXPECT_EQ(model->index(0, 0).data(Qt::AccessibleTextRole), "a<b>, rotto");
    EXPECT_TRUE(model->index(0, 0).data(Qt::ToolTipRole).toString().contains("a&lt;b&gt;\nrotto"));
    EXPECT_EQ(model->index(0, 0).data(qt::ReportListModel::AbnormalRole), true);
    EXPECT_EQ(model->index(1, 0).data(qt::ReportListModel::AbnormalRole), false);
}

}  // namespace
}  // namespace velt
