// SPDX-License-Identifier: MIT
// The widget contract, over the fakes that the logic is tested with and over the real widgets.
#include "adapters/qt/qtcheckbox.h"
#include "adapters/qt/qtcombobox.h"
#include "adapters/qt/qtdatacontrol.h"
#include "adapters/qt/qtdatagrid.h"
#include "adapters/qt/qtdatepicker.h"
#include "adapters/qt/qtlistview.h"
#include "tests/adapters/qt/testcontrol.h"
#include "tests/errorof.h"
#include "tests/fakes/fakedatabase.h"
#include "tests/fakes/fakewidgets.h"
#include "tests/qtmain.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDateTimeEdit>
#include <QHeaderView>
#include <QTableView>

#include <gtest/gtest.h>

#include <memory>

namespace velt {
namespace {

/// The fakes, and how an operator uses them.
struct Fakes {
    fakes::FakeCheckBox box;
    fakes::FakeDatePicker date, time;
    fakes::FakeComboBox combo;
    fakes::FakeListView list;
    fakes::FakeDataControl data;
    fakes::FakeDataGrid grid{data};

    void toggle() { box.toggle(); }
    void editHour(int hour) { time.edit(withHour(time.Value(), hour)); }
    void choose(int index) { combo.ListIndex(index); }
    void click(int row) { list.click(row); }
    void doubleClick(int row) { list.doubleClick(row); }
    void activate(int row) { list.activate(row); }
    void moveTo(int position) { data.moveTo(position); }
    void drag(int column, int pixels) { grid.drag(column, pixels * TwipsPerPixel); }

    static Date withHour(const Date& date, int hour) {
        Date::Fields fields = date.fields();
        fields.hour = hour;
        return Date::fromFields(fields);
    }
};

/// The widgets of Qt behind their adapters, used with mouse and keyboard.
struct Real {
    QWidget window;
    QCheckBox* qBox = new QCheckBox("c", &window);
    QDateTimeEdit* qDate = new QDateTimeEdit(&window);
    QDateTimeEdit* qTime = new QDateTimeEdit(&window);
    QComboBox* qCombo = new QComboBox(&window);
    QTableView* qList = new QTableView(&window);
    qt::RecordBar* qBar = new qt::RecordBar(&window);
    QTableView* qGrid = new QTableView(&window);

    std::shared_ptr<qt::TestControl> control = std::make_shared<qt::TestControl>(&window);
    InlineDispatcher dispatcher;
    qt::QtCheckBox box{*control, qBox};
    qt::QtDatePicker date{*control, qDate}, time{*control, qTime};
    qt::QtComboBox combo{*control, qCombo};
    qt::QtListView list{*control, qList};
    qt::QtDataControl data{*control, qBar};
    qt::QtDataGrid grid{*control, qGrid, data, dispatcher, Locale::italian()};

    Real() {
        qDate->setDisplayFormat("dd/MM/yyyy");
        qTime->setDisplayFormat("HH.mm");
        int y = 0;
        for (QWidget* widget : {static_cast<QWidget*>(qBox), static_cast<QWidget*>(qDate),
                                static_cast<QWidget*>(qTime), static_cast<QWidget*>(qCombo),
                                static_cast<QWidget*>(qList), static_cast<QWidget*>(qBar),
                                static_cast<QWidget*>(qGrid)}) {
            widget->setGeometry(0, y, 400, 80);
            y += 85;
        }
        window.show();
        settle();
    }
    ~Real() { settle(); }

    void toggle() {
        QTest::keyClick(qBox, Qt::Key_Space);
        settle();
    }
    void editHour(int hour) {
        qTime->setSelectedSection(QDateTimeEdit::HourSection);
        QTest::keyClicks(qTime, QString("%1").arg(hour, 2, 10, QChar('0')));
        QTest::keyClick(qTime, Qt::Key_Return);
        settle();
    }
    void choose(int index) {
        QTest::keyClick(qCombo, Qt::Key_Home);
        for (int i = 0; i < index; ++i) QTest::keyClick(qCombo, Qt::Key_Down);
        settle();
    }
    QPoint place(int row) const {
        return qList->visualRect(qList->model()->index(row - 1, 0)).center();
    }
    void click(int row) {
        QTest::mouseClick(qList->viewport(), Qt::LeftButton, {}, place(row));
        settle();
    }
    void activate(int row) {
        qList->setCurrentIndex(qList->model()->index(row - 1, 0));
        QTest::keyClick(qList, Qt::Key_Enter);
        settle();
    }
    void doubleClick(int row) {
        click(row);
        QTest::mouseDClick(qList->viewport(), Qt::LeftButton, {}, place(row));
        settle();
    }
    void moveTo(int position) {
        const QPoint place = qGrid->visualRect(qGrid->model()->index(position - 1, 0)).center();
        QTest::mouseClick(qGrid->viewport(), Qt::LeftButton, {}, place);
        settle();
    }
    void drag(int column, int pixels) {
        QHeaderView* header = qGrid->horizontalHeader();
        const int border = header->sectionViewportPosition(column) + header->sectionSize(column);
        const QPoint from(border - 1, header->height() / 2);
        const int step = pixels - header->sectionSize(column);
        QTest::mousePress(header->viewport(), Qt::LeftButton, {}, from);
        for (int i = 1; i <= 4; ++i)
            QTest::mouseMove(header->viewport(), from + QPoint(step * i / 4, 0));
        QTest::mouseRelease(header->viewport(), Qt::LeftButton, {}, from + QPoint(step, 0));
        settle();
    }
};

template <typename Side>
class WidgetContract : public testing::Test {
protected:
    template <typename... Args>
    void count(Event<Args...>& event) {
        event.subscribe([this](Args...) { ++events; });
    }
    std::shared_ptr<fakes::FakeRecordset> open(std::size_t rowCount,
                                               std::vector<std::string> columns = {"a", "b"}) {
        std::vector<std::vector<Variant>> rows(
            rowCount, std::vector<Variant>(columns.size(), Variant("cell")));
        database.answers["q"] =
            std::make_shared<fakes::FakeRowSet>(std::move(columns), std::move(rows));
        const auto recordset = std::make_shared<fakes::FakeRecordset>(database);
        recordset->Open("q", connection, ado::OpenStatic, ado::LockReadOnly, -1);
        return recordset;
    }

    Side side;
    int events = 0;
    fakes::FakeDatabaseState database;
    std::shared_ptr<fakes::FakeConnection> connection =
        std::make_shared<fakes::FakeConnection>(database);
};

using Sides = testing::Types<Fakes, Real>;
TYPED_TEST_SUITE(WidgetContract, Sides);

TYPED_TEST(WidgetContract, ACheckBoxClicksForTheOperatorAndForAnotherValue) {
    auto& box = this->side.box;
    this->count(box.Click);
    EXPECT_EQ(box.Value(), 0);
    box.Value(0);
    EXPECT_EQ(this->events, 0);
    box.Value(1);
    EXPECT_EQ(this->events, 1);
    box.Value(1);
    EXPECT_EQ(this->events, 1);
    this->side.toggle();
    EXPECT_EQ(box.Value(), 0);
    EXPECT_EQ(this->events, 2);
}

TYPED_TEST(WidgetContract, ADatePickerChangesForTheOperatorOnlyAndKeepsAllOfItsValue) {
    const Date moments[] = {
        Date::fromFields({2006, 3, 14, 18, 45, 12, 345}),
        Date::fromFields({100, 1, 1, 0, 0, 0, 0}),
        Date::fromFields({9999, 12, 31, 23, 59, 59, 0}),
        Date(-1.25),
        Date::fromFields({2024, 3, 31, 2, 30, 0, 0}),  // an hour that summer time skips
        Date(1e9)};
    this->count(this->side.date.Change);
    this->count(this->side.time.Change);
    for (const Date& moment : moments) {
        this->side.date.Value(moment);
        this->side.time.Value(moment);
        EXPECT_EQ(this->side.date.Value().serial(), moment.serial());
        EXPECT_EQ(this->side.time.Value().serial(), moment.serial());
    }
    EXPECT_EQ(this->events, 0);

    this->side.time.Value(moments[0]);
    this->side.editHour(7);
    EXPECT_GE(this->events, 1);
    EXPECT_EQ(this->side.time.Value(), Date::fromFields({2006, 3, 14, 7, 45, 12, 345}));
    this->side.time.Value(moments[4]);
    this->side.editHour(3);
    EXPECT_EQ(this->side.time.Value(), Date::fromFields({2024, 3, 31, 3, 30, 0, 0}));
}

TYPED_TEST(WidgetContract, AComboBoxNeverSelectsByItselfAndAlwaysClicksWhenAssigned) {
    auto& combo = this->side.combo;
    this->count(combo.Click);
    EXPECT_EQ(combo.ListIndex(), -1);
    combo.AddItem("uno");
    combo.AddItem("due");
    combo.AddItem("due");
    EXPECT_EQ(combo.ListIndex(), -1);
    EXPECT_EQ(combo.Text(), "");
    EXPECT_EQ(this->events, 0);
    for (const int index : {1, 1, 2, -1, -1}) combo.ListIndex(index);
    EXPECT_EQ(this->events, 5);
    EXPECT_EQ(combo.Text(), "");
    EXPECT_EQ(errorOf([&] { combo.ListIndex(3); }), ErrorNumber::SubscriptOutOfRange);
    EXPECT_EQ(errorOf([&] { combo.ListIndex(-2); }), ErrorNumber::SubscriptOutOfRange);
    EXPECT_EQ(errorOf([&] { (void)combo.List(3); }), ErrorNumber::SubscriptOutOfRange);
    EXPECT_EQ(this->events, 5);

    combo.ListIndex(0);
    this->events = 0;
    this->side.choose(2);
    EXPECT_GE(this->events, 1);
    EXPECT_EQ(combo.ListIndex(), 2);
    EXPECT_EQ(combo.Text(), "due");
}

TYPED_TEST(WidgetContract, AListFindsRowsByKeyAndMarksThemSilently) {
    auto& list = this->side.list;
    this->count(list.DblClick);
    this->count(list.ItemActivate);
    list.Add("k1", "uno");
    list.Add("", "due");
    list.Add("", "tre");
    EXPECT_EQ(errorOf([&] { list.Add("k1", "again"); }), ErrorNumber::KeyInUse);
    EXPECT_EQ(list.Count(), 3);
    EXPECT_EQ(list.RowOf("k1"), 1);
    EXPECT_EQ(list.RowOf("k2"), 0);
    EXPECT_FALSE(list.Checked(2));
    list.Checked(2, true);
    EXPECT_TRUE(list.Checked(2));
    EXPECT_EQ(errorOf([&] { (void)list.Checked(0); }), ErrorNumber::SubscriptOutOfRange);
    EXPECT_EQ(errorOf([&] { list.Checked(4, true); }), ErrorNumber::SubscriptOutOfRange);
    EXPECT_EQ(list.SelectedItem(), 0);
    EXPECT_EQ(this->events, 0);

    this->side.doubleClick(2);
    EXPECT_EQ(this->events, 2) << "DblClick and ItemActivate";
    EXPECT_EQ(list.SelectedItem(), 2);
    EXPECT_TRUE(list.Checked(2)) << "the logic flips it, not the list";
    this->side.activate(3);
    EXPECT_EQ(this->events, 3);
    EXPECT_EQ(list.SelectedItem(), 3);

    this->count(list.Click);
    this->side.click(1);
    this->side.click(1);
    EXPECT_EQ(this->events, 5);
    EXPECT_EQ(list.SelectedItem(), 1);
}

TYPED_TEST(WidgetContract, ADataControlFollowsItsRecordsetAndOutlivesItsClosing) {
    auto& data = this->side.data;
    this->count(data.MoveComplete);
    const auto recordset = this->open(4);
    data.Recordset(recordset);
    this->side.grid.ReBind();
    EXPECT_EQ(this->events, 1);
    EXPECT_EQ(data.RecordCount(), 4);
    EXPECT_EQ(data.AbsolutePosition(), 1);
    this->side.moveTo(3);
    EXPECT_EQ(this->events, 2);
    EXPECT_EQ(data.AbsolutePosition(), 3);
    EXPECT_EQ(recordset->AbsolutePosition(), 3);

    recordset->Close();
    EXPECT_EQ(data.RecordCount(), 4);
    EXPECT_EQ(data.AbsolutePosition(), 3);
    this->side.moveTo(2);
    EXPECT_EQ(this->events, 3);
    EXPECT_EQ(data.AbsolutePosition(), 2);
    recordset->Open("q", this->connection, 3, 1, -1);
    EXPECT_EQ(this->events, 4);
    EXPECT_EQ(data.AbsolutePosition(), 1);
}

TYPED_TEST(WidgetContract, AGridTakesColumnsOnReBindAndTellsResizesByTheOperator) {
    auto& grid = this->side.grid;
    this->count(grid.ColResize);
    this->side.data.Recordset(this->open(3, {"x_1", "y"}));
    EXPECT_EQ(grid.ColumnCount(), 0);
    grid.ReBind();
    ASSERT_EQ(grid.ColumnCount(), 2);
    const double usual = grid.ColumnWidth(0);
    EXPECT_GT(usual, 0);
    for (const double width : {0.0, 1801.0, 900000.0, 1500.0}) {
        grid.ColumnWidth(0, width);
        EXPECT_EQ(grid.ColumnWidth(0), width);
    }
    EXPECT_EQ(this->events, 0);
    this->side.drag(0, 160);
    EXPECT_EQ(this->events, 1) << "once per drag";
    EXPECT_EQ(grid.ColumnWidth(0), 2400);
    EXPECT_EQ(errorOf([&] { (void)grid.ColumnWidth(2); }), ErrorNumber::SubscriptOutOfRange);
    EXPECT_EQ(errorOf([&] { grid.ColumnWidth(-1, 10); }), ErrorNumber::SubscriptOutOfRange);
    EXPECT_EQ(errorOf([&] { grid.ColumnCaption(2, "z"); }), ErrorNumber::SubscriptOutOfRange);

    this->side.data.Recordset(this->open(2, {"x_1", "y"}));
    EXPECT_EQ(grid.ColumnWidth(0), 2400) << "kept until the columns are taken anew";
    grid.ReBind();
    EXPECT_EQ(grid.ColumnCaption(0), "x_1");
    EXPECT_EQ(grid.ColumnWidth(0), usual);
}

}  // namespace
}  // namespace velt
