// SPDX-License-Identifier: MIT
// The widget contract of what only the OPC and the connection viewer use: clicks and activation of
// a list, and sizes; over the fakes and over the real widgets.
#include "adapters/qt/qtlistview.h"
#include "adapters/qt/qtplaced.h"
#include "tests/adapters/qt/testcontrol.h"
#include "tests/fakes/fakewidgets.h"
#include "tests/qtmain.h"

#include <QTableView>

#include <gmock/gmock.h>

#include <memory>

namespace velt {
namespace {

using testing::ElementsAre;

struct FakeSide {
    fakes::FakeListView list;
    fakes::FakePlaced placed{1500, 300, 3000, 600};

    void click(int row) { list.click(row); }
    void activate(int row) { list.activate(row); }
};

struct RealSide {
    QWidget window;
    QTableView* view = new QTableView(&window);
    QWidget* box = new QWidget(&window);
    std::shared_ptr<qt::TestControl> control = std::make_shared<qt::TestControl>(&window);
    qt::QtListView list{*control, view, std::vector<qt::ListPicture>(2)};
    qt::QtPlaced placed{box};

    RealSide() {
        window.resize(400, 300);
        view->resize(200, 200);
        box->setGeometry(100, 20, 200, 40);
        window.show();
        settle();
    }
    ~RealSide() { settle(); }
    QPoint place(int row) const {
        return view->visualRect(view->model()->index(row - 1, 0)).center();
    }
    void click(int row) {
        QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, place(row));
        settle();
    }
    void activate(int row) {
        view->setCurrentIndex(view->model()->index(row - 1, 0));
        settle();
        QTest::keyClick(view, Qt::Key_Enter);
        settle();
    }
};

template <typename Side>
class ConnWidgetContract : public testing::Test {
protected:
    ConnWidgetContract() {
        for (const char* name : {"RTU01", "RTU02", "RTU03"}) side.list.Add(name, name);
        side.list.Click.subscribe([this] { clicked.push_back(side.list.SelectedItem()); });
        side.list.ItemActivate.subscribe([this] { activated.push_back(side.list.SelectedItem()); });
    }
    Side side;
    std::vector<int> clicked, activated;
};

using Sides = testing::Types<FakeSide, RealSide>;
TYPED_TEST_SUITE(ConnWidgetContract, Sides);

TYPED_TEST(ConnWidgetContract, AListTellsOnceWhatWasClickedOrActivated) {
    this->side.click(2);
    this->side.click(2);
    this->side.click(3);
    EXPECT_THAT(this->clicked, ElementsAre(2, 2, 3));
    EXPECT_THAT(this->activated, ElementsAre());
    this->side.activate(1);
    EXPECT_THAT(this->activated, ElementsAre(1));
}

TYPED_TEST(ConnWidgetContract, ASizeIsInTwipsAndNeverNegative) {
    Placed& placed = this->side.placed;
    placed.Width(4500);
    placed.Height(0);
    try {
        placed.Height(-15);
        ADD_FAILURE() << "a negative size";
    } catch (const RuntimeError& error) {
        EXPECT_TRUE(error.is(ErrorNumber::InvalidCall));
    }
    EXPECT_EQ(placed.Left(), 1500);
    EXPECT_EQ(placed.Top(), 300);
    EXPECT_EQ(placed.Width(), 4500);
    EXPECT_EQ(placed.Height(), 0);
}

TEST(PicturedListTest, ShowsPicturesInsteadOfMarksAndTakesKeysForClicks) {
    RealSide side;
    side.list.Add("k", "RTU01");
    side.list.Add("", "RTU02");
    QAbstractItemModel& model = *side.view->model();
    EXPECT_FALSE(model.index(0, 0).data(Qt::CheckStateRole).isValid());
    EXPECT_FALSE(model.index(0, 0).data(Qt::DecorationRole).isValid());
    side.list.Icon(1, 1);
    EXPECT_TRUE(model.index(0, 0).data(Qt::DecorationRole).isValid());
    side.list.Icon(1, 7);
    EXPECT_FALSE(model.index(0, 0).data(Qt::DecorationRole).isValid());
    EXPECT_THROW(side.list.Icon(3, 0), RuntimeError);

    int clicks = 0;
    side.list.Click.subscribe([&] { ++clicks; });
    side.click(1);
    QTest::keyClick(side.view, Qt::Key_Down);
    settle();
    EXPECT_EQ(clicks, 2);
    EXPECT_EQ(side.list.SelectedItem(), 2);
    QTest::mouseClick(side.view->viewport(), Qt::LeftButton, {}, QPoint(50, 150));
    settle();
    EXPECT_EQ(clicks, 3) << "below the rows";
    side.list.Clear();
    settle();
    EXPECT_EQ(clicks, 3);

    side.list.ColumnWidth(0, 1500);
    side.view->resize(300, 200);
    settle();
    EXPECT_EQ(side.view->columnWidth(0), 100) << "it no longer follows the list";
}

}  // namespace
}  // namespace velt
