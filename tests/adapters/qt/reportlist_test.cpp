// SPDX-License-Identifier: MIT
// The table of texts: its keys, its order and its filter.
#include "adapters/qt/qtreportlist.h"
#include "tests/adapters/qt/testcontrol.h"
#include "tests/errorof.h"
#include "tests/qtmain.h"

#include <QAbstractItemModelTester>
#include <QHeaderView>

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

    QAbstractItemModel* model = view->model();

    ReportListTest() {
        view->resize(500, 300);
        window.resize(500, 300);
        window.show();
        settle();
    }
    ~ReportListTest() override { settle(); }
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
    void fill(int count) {
        for (int i = 1; i <= count; ++i)
            list.Add("I" + std::to_string(i), "RTU." + std::to_string(i), "ok");
        flush();
    }
};

TEST_F(ReportListTest, FindsRowsByKeyAndForgetsThemAtOnce) {
    list.Add("I7", "zeta", "ok");
    list.Add("I8", "alfa", "bad");
    list.Add("I9", "mu", "no such picture");
    EXPECT_EQ(list.Count(), 3) << "at once";
    EXPECT_EQ(errorOf([&] { list.Add("I8", "again", "ok"); }), ErrorNumber::KeyInUse);
    EXPECT_EQ(errorOf([&] { (void)list.Key(0); }), ErrorNumber::SubscriptOutOfRange);
    EXPECT_EQ(errorOf([&] { list.SubItem(4, 1, "x"); }), ErrorNumber::SubscriptOutOfRange);
    EXPECT_EQ(errorOf([&] { list.SubItem(1, 4, "x"); }), ErrorNumber::SubscriptOutOfRange);
    select(2);
    list.SubItem(2, 1, "omega");
    list.Clear();
    EXPECT_EQ(model->rowCount(), 0);
    EXPECT_EQ(list.RowOf("I7"), 0);
    EXPECT_EQ(list.SelectedItem(), 0);
    list.Add("I8", "again", "ok");
    list.SubItem(1, 1, "new");
    flush();
    EXPECT_EQ(list.RowOf("I8"), 1);
    EXPECT_THAT(shown(1), ElementsAre("new"));
}

TEST_F(ReportListTest, SortsStablyAndAgainWhenTheSortedTextsChange) {
    fill(12);
    EXPECT_THAT(shown(), ElementsAre("RTU.1", "RTU.2", "RTU.3", "RTU.4", "RTU.5", "RTU.6", "RTU.7",
                                     "RTU.8", "RTU.9", "RTU.10", "RTU.11", "RTU.12"));
    for (int row = 1; row <= 12; ++row) list.SubItem(row, 1, row % 2 == 0 ? "9" : "10");
    select(3);
    list.SortKey(1);
    EXPECT_EQ(view->horizontalHeader()->sortIndicatorSection(), 1);
    EXPECT_THAT(shown(), ElementsAre("RTU.2", "RTU.4", "RTU.6", "RTU.8", "RTU.10", "RTU.12",
                                     "RTU.1", "RTU.3", "RTU.5", "RTU.7", "RTU.9", "RTU.11"));
    list.SubItem(12, 1, "-1");
    EXPECT_TRUE(eventually([&] { return shown().front() == "RTU.12"; }));
    EXPECT_EQ(list.SelectedItem(), 3);
    EXPECT_EQ(view->currentIndex().row(), 7);
    QTest::keyClick(view, Qt::Key_Down);
    EXPECT_EQ(list.Key(list.SelectedItem()), "I5");
    list.SortOrder(ReportList::Order::Descending);
    EXPECT_THAT(shown(), ElementsAre("RTU.1", "RTU.3", "RTU.5", "RTU.7", "RTU.9", "RTU.11", "RTU.2",
                                     "RTU.4", "RTU.6", "RTU.8", "RTU.10", "RTU.12"));
    EXPECT_EQ(list.Key(list.SelectedItem()), "I5");
}

TEST_F(ReportListTest, TheFilterOnlyHidesAndNeverMovesTheSelection) {
    fill(20);
    for (int row = 1; row <= 20; ++row) list.SubItem(row, 2, row % 3 == 0 ? "Bad" : "Good");
    list.Add("I21", "rtu.121", "bad");
    list.SubItem(21, 2, "Good");
    flush();
    select(12);
    list.filter("Rtu.1", false);
    EXPECT_EQ(list.shownCount(), 12);
    EXPECT_EQ(list.SelectedItem(), 12);
    list.filter("rtu.1", true);
    EXPECT_THAT(shown(), ElementsAre("RTU.12", "RTU.15", "RTU.18", "rtu.121"));
    EXPECT_EQ(list.Count(), 21);
    EXPECT_EQ(list.SelectedItem(), 12);

    list.SubItem(12, 2, "Good");  // no neighbour may take its place
    EXPECT_TRUE(eventually([&] { return list.shownCount() == 3; }));
    EXPECT_EQ(list.SelectedItem(), 0);
    list.SubItem(16, 2, "Uncertain");
    EXPECT_TRUE(eventually([&] { return list.shownCount() == 4; }));
    list.filter("", false);
    EXPECT_EQ(list.shownCount(), 21);
    EXPECT_EQ(shown()[11], "RTU.12");
}

}  // namespace
}  // namespace velt
