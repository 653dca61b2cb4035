// SPDX-License-Identifier: MIT
// The table of texts: its keys, its order and its filter.
#include "adapters/qt/qtreportlist.h"
#include "tests/adapters/qt/testcontrol.h"
#include "tests/errorof.h"
#include "tests/qtmain.h"

#include <QAbstractItemModelTester>
#include <QHeaderView>
#include <QSignalSpy>

#include <gmock/gmock.h>

#include <memory>

namespace velt {
namespace {

using testing::ElementsAre;

class ReportListTest : public testing::Test {
protected:
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

    ReportListTest() {
        view->resize(500, 500);
        window.show();
        settle();
    }
    ~ReportListTest() override { settle(); }
    void select(const char* text) {
        flush();
        view->setCurrentIndex(view->model()->match(view->model()->index(0, 0), 0, text).value(0));
    }
    std::string selected() const {
        return list.SelectedItem() == 0 ? "" : list.Key(list.SelectedItem());
    }
    /// Waits until what was assigned is in view.
    void flush() const {
        EXPECT_TRUE(eventually([this] { return list.shownCount() == list.Count(); }));
        QTest::qWait(150);
    }
    /// The numbers in the texts of the first column.
    std::vector<int> shown() const {
        std::vector<int> numbers;
        for (int i = 0; i < view->model()->rowCount(); ++i)
            numbers.push_back(view->model()->index(i, 0).data().toString().mid(4).toInt());
        return numbers;
    }
    void fill(int count) {
        for (int i = 1; i <= count; ++i)
            list.Add("I" + std::to_string(i), "RTU." + std::to_string(i), "ok");
        flush();
    }
};

TEST_F(ReportListTest, FindsRowsByKeyAndForgetsThemAtOnce) {
    list.Add("I7", "RTU.7", "ok");
    list.Add("I8", "RTU.8", "bad");
    EXPECT_EQ(list.Count(), 2) << "at once";
    EXPECT_EQ(errorOf([&] { list.Add("I8", "again", "ok"); }), ErrorNumber::KeyInUse);
    EXPECT_EQ(errorOf([&] { (void)list.Key(0); }), ErrorNumber::SubscriptOutOfRange);
    for (const auto& [row, column] : {std::pair(3, 1), std::pair(1, 4)})
        EXPECT_EQ(errorOf([&] { list.SubItem(row, column, "x"); }),
                  ErrorNumber::SubscriptOutOfRange);
    select("RTU.8");
    list.Clear();
    EXPECT_EQ(view->model()->rowCount(), 0);
    EXPECT_EQ(list.RowOf("I7"), 0);
    EXPECT_EQ(selected(), "");
    list.Add("I8", "RTU.8", "no such picture");
    flush();
    EXPECT_EQ(list.RowOf("I8"), 1);
}

TEST_F(ReportListTest, SortsStablyAndAgainWhenTheSortedTextsChange) {
    fill(12);
    QSignalSpy changes(view->model(), &QAbstractItemModel::dataChanged);
    for (const char* odd : {"7", "8", "10"})
        for (int row = 1; row <= 12; ++row) list.SubItem(row, 1, row % 2 == 0 ? "9" : odd);
    select("RTU.3");
    EXPECT_EQ(changes.size(), 1) << "all are painted together";
    list.SortKey(1);
    EXPECT_EQ(view->horizontalHeader()->sortIndicatorSection(), 1);
    EXPECT_THAT(shown(), ElementsAre(2, 4, 6, 8, 10, 12, 1, 3, 5, 7, 9, 11));
    list.SubItem(12, 1, "-1");
    EXPECT_TRUE(eventually([&] { return shown().front() == 12; }));
    EXPECT_EQ(selected(), "I3");
    list.SortOrder(ReportList::Order::Descending);
    EXPECT_THAT(shown(), ElementsAre(1, 3, 5, 7, 9, 11, 2, 4, 6, 8, 10, 12));
    EXPECT_EQ(view->currentIndex().row(), 1);
}

TEST_F(ReportListTest, TheFilterOnlyHidesAndNeverMovesTheSelection) {
    fill(20);
    for (int row = 1; row <= 20; ++row) list.SubItem(row, 2, row % 3 == 0 ? "Bad" : "Good");
    list.Add("I21", "rtu.121", "bad");
    list.SubItem(21, 2, "Good");
    select("RTU.12");
    list.filter("Rtu.1", false);
    EXPECT_THAT(shown(), ElementsAre(1, 10, 11, 12, 13, 14, 15, 16, 17, 18, 19, 121));
    EXPECT_EQ(selected(), "I12");
    list.filter("rtu.1", true);
    EXPECT_THAT(shown(), ElementsAre(12, 15, 18, 121));
    EXPECT_EQ(list.Count(), 21);
    EXPECT_EQ(selected(), "I12");

    list.SubItem(12, 2, "Good");  // no neighbour may take its place
    EXPECT_TRUE(eventually([&] { return list.shownCount() == 3; }));
    EXPECT_EQ(selected(), "");
    list.SubItem(16, 2, "Uncertain");
    EXPECT_TRUE(eventually([&] { return list.shownCount() == 4; }));
    list.filter("", false);
    EXPECT_EQ(list.shownCount(), 21);
    EXPECT_EQ(shown()[11], 12);
}

}  // namespace
}  // namespace velt
