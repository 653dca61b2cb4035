// SPDX-License-Identifier: MIT
// The widget contract, over the fakes that the logic is tested with and over the real widgets.
#include "adapters/qt/qtbutton.h"
#include "adapters/qt/qtcheckbox.h"
#include "adapters/qt/qtcombobox.h"
#include "adapters/qt/qtdatacontrol.h"
#include "adapters/qt/qtdatagrid.h"
#include "adapters/qt/qtdatepicker.h"
#include "adapters/qt/qtlistview.h"
#include "adapters/qt/qttimer.h"
#include "tests/adapters/qt/testcontrol.h"
#include "tests/fakes/fakedatabase.h"
#include "tests/fakes/fakewidgets.h"
#include "tests/qtmain.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDateTimeEdit>
#include <QHeaderView>
#include <QPushButton>
#include <QTableView>

#include <gtest/gtest.h>

#include <memory>

namespace velt {
namespace {

/// The fakes, and how an operator uses them.
struct Fakes {
    fakes::FakeButton button;
    fakes::FakeCheckBox box;
    fakes::FakeDatePicker date, time;
    fakes::FakeComboBox combo;
    fakes::FakeListView list;
    fakes::FakeDataControl data;
    fakes::FakeDataGrid grid{data};
    fakes::FakeTimer timer;

    void click() { button.click(); }
    void toggle() { box.toggle(); }
    void editHour(int hour) { time.edit(withHour(time.Value(), hour)); }
    void choose(int index) { combo.ListIndex(index); }
    void doubleClick(int row) { list.doubleClick(row); }
    void moveTo(int position) { data.moveTo(position); }
    void drag(int column, int pixels) { grid.drag(column, pixels * TwipsPerPixel); }
    void letTimePass() { timer.fire(); }

    static Date withHour(const Date& date, int hour) {
        Date::Fields fields = date.fields();
        fields.hour = hour;
        return Date::fromFields(fields);
    }
};

/// The widgets of Qt behind their adapters, used with mouse and keyboard.
struct Real {
    QWidget window;
    QPushButton* qButton = new QPushButton("b", &window);
    QCheckBox* qBox = new QCheckBox("c", &window);
    QDateTimeEdit* qDate = new QDateTimeEdit(&window);
    QDateTimeEdit* qTime = new QDateTimeEdit(&window);
    QComboBox* qCombo = new QComboBox(&window);
    QTableView* qList = new QTableView(&window);
    qt::RecordBar* qBar = new qt::RecordBar(&window);
    QTableView* qGrid = new QTableView(&window);

    std::shared_ptr<qt::TestControl> control = std::make_shared<qt::TestControl>(&window);
    InlineDispatcher dispatcher;
    qt::QtButton button{*control, qButton};
    qt::QtCheckBox box{*control, qBox};
    qt::QtDatePicker date{*control, qDate}, time{*control, qTime};
    qt::QtComboBox combo{*control, qCombo};
    qt::QtListView list{*control, qList};
    qt::QtDataControl data{*control, qBar};
    qt::QtDataGrid grid{*control, qGrid, data, dispatcher, Locale::italian()};
    qt::QtTimer timer{*control};

    Real() {
        qDate->setDisplayFormat("dd/MM/yyyy");
        qTime->setDisplayFormat("HH.mm");
        int y = 0;
        for (QWidget* widget : {static_cast<QWidget*>(qButton), static_cast<QWidget*>(qBox),
                                static_cast<QWidget*>(qDate), static_cast<QWidget*>(qTime),
                                static_cast<QWidget*>(qCombo), static_cast<QWidget*>(qList),
                                static_cast<QWidget*>(qBar), static_cast<QWidget*>(qGrid)}) {
            widget->setGeometry(0, y, 400, 80);
            y += 85;
        }
        window.show();
        settle();
    }
    ~Real() { settle(); }

    void click() {
        QTest::mouseClick(qButton, Qt::LeftButton);
        settle();
    }
    void toggle() {
        QTest::keyClick(qBox, Qt::Key_Space);
        settle();
    }
    void editHour(int hour) {
        qTime->setSelectedSection(QDateTimeEdit::HourSection);
        QTest::keyClicks(qTime, QString("%1").arg(hour, 2, 10, QChar('0')));
        settle();
    }
    void choose(int index) {
        QTest::keyClick(qCombo, Qt::Key_Home);
        for (int i = 0; i < index; ++i) QTest::keyClick(qCombo, Qt::Key_Down);
        settle();
    }
    void doubleClick(int row) {
        const QPoint place = qList->visualRect(qList->model()->index(row - 1, 0)).center();
        QTest::mouseClick(qList->viewport(), Qt::LeftButton, {}, place);
        QTest::mouseDClick(qList->viewport(), Qt::LeftButton, {}, place);
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
    void letTimePass() {
        EXPECT_TRUE(eventually([this] { return ticked; }));
    }
    bool ticked = false;
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

#define EXPECT_ERROR_9(statement)                                \
    try {                                                        \
        statement;                                               \
        ADD_FAILURE() << #statement " raised nothing";           \
    } catch (const RuntimeError& error) {                        \
        EXPECT_TRUE(error.is(ErrorNumber::SubscriptOutOfRange)); \
    }

TYPED_TEST(WidgetContract, AButtonIsClickedWhileEnabled) {
    this->count(this->side.button.Click);
    this->side.click();
    EXPECT_EQ(this->events, 1);
    this->side.button.Enabled(false);
    EXPECT_FALSE(this->side.button.Enabled());
    this->side.click();
    EXPECT_EQ(this->events, 1);
}

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
    EXPECT_ERROR_9(combo.ListIndex(3));
    EXPECT_ERROR_9(combo.ListIndex(-2));
    EXPECT_ERROR_9((void)combo.List(3));
    EXPECT_EQ(this->events, 5);

    combo.ListIndex(0);
    this->events = 0;
    this->side.choose(2);
    EXPECT_GE(this->events, 1);
    EXPECT_EQ(combo.ListIndex(), 2);
    EXPECT_EQ(combo.Text(), "due");
    combo.Clear();
    EXPECT_EQ(combo.ListIndex(), -1);
    EXPECT_EQ(combo.ListCount(), 0);
}

TYPED_TEST(WidgetContract, AListFindsRowsByKeyAndMarksThemSilently) {
    auto& list = this->side.list;
    this->count(list.DblClick);
    list.Add("k1", "uno");
    list.Add("", "due");
    list.Add("", "tre");
    try {
        list.Add("k1", "again");
        ADD_FAILURE() << "the key is in use";
    } catch (const RuntimeError& error) {
        EXPECT_TRUE(error.is(ErrorNumber::KeyInUse));
    }
    EXPECT_EQ(list.Count(), 3);
    EXPECT_EQ(list.RowOf("k1"), 1);
    EXPECT_EQ(list.RowOf("k2"), 0);
    EXPECT_EQ(list.Key(1), "k1");
    EXPECT_EQ(list.Text(3), "tre");
    EXPECT_FALSE(list.Checked(2));
    list.Checked(2, true);
    EXPECT_TRUE(list.Checked(2));
    EXPECT_ERROR_9((void)list.Checked(0));
    EXPECT_ERROR_9(list.Checked(4, true));
    EXPECT_EQ(list.SelectedItem(), 0);
    EXPECT_EQ(this->events, 0);

    this->side.doubleClick(2);
    EXPECT_EQ(this->events, 1);
    EXPECT_EQ(list.SelectedItem(), 2);
    EXPECT_TRUE(list.Checked(2)) << "the logic flips it, not the list";
    list.Clear();
    EXPECT_EQ(list.Count(), 0);
    EXPECT_EQ(list.SelectedItem(), 0);
    EXPECT_EQ(list.RowOf("k1"), 0);
}

TYPED_TEST(WidgetContract, ADataControlFollowsItsRecordsetAndOutlivesItsClosing) {
    auto& data = this->side.data;
    this->count(data.MoveComplete);
    EXPECT_EQ(data.RecordCount(), 0);
    EXPECT_EQ(data.AbsolutePosition(), 0);

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

    this->database.failures.emplace("bad", RuntimeError(1, "failed"));
    EXPECT_THROW(recordset->Open("bad", this->connection, 3, 1, -1), RuntimeError);
    EXPECT_EQ(data.RecordCount(), 4);
    recordset->Open("q", this->connection, 3, 1, -1);
    EXPECT_EQ(this->events, 4);
    EXPECT_EQ(data.AbsolutePosition(), 1);

    data.Recordset(nullptr);
    EXPECT_EQ(data.RecordCount(), 0);
    recordset->MoveLast();  // no longer bound
    EXPECT_EQ(this->events, 4);
    data.Recordset(this->open(0));
    EXPECT_EQ(this->events, 5);
    EXPECT_EQ(data.AbsolutePosition(), 0);
}

TYPED_TEST(WidgetContract, AGridTakesColumnsOnReBindAndTellsResizesByTheOperator) {
    auto& grid = this->side.grid;
    this->count(grid.ColResize);
    this->side.data.Recordset(this->open(3, {"x_1", "y"}));
    EXPECT_EQ(grid.ColumnCount(), 0);
    grid.ReBind();
    ASSERT_EQ(grid.ColumnCount(), 2);
    EXPECT_EQ(grid.ColumnCaption(0), "x_1");
    grid.ColumnCaption(0, "x 1");
    EXPECT_EQ(grid.ColumnCaption(0), "x 1");
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
    EXPECT_ERROR_9((void)grid.ColumnWidth(2));
    EXPECT_ERROR_9(grid.ColumnWidth(-1, 10));
    EXPECT_ERROR_9(grid.ColumnCaption(2, "z"));

    this->side.data.Recordset(this->open(2, {"x_1", "y"}));
    EXPECT_EQ(grid.ColumnWidth(0), 2400) << "kept until the columns are taken anew";
    grid.ReBind();
    EXPECT_EQ(grid.ColumnCaption(0), "x_1");
    EXPECT_EQ(grid.ColumnWidth(0), usual);
}

TYPED_TEST(WidgetContract, ATimerTicksWhileEnabled) {
    auto& timer = this->side.timer;
    this->count(timer.Tick);
    EXPECT_FALSE(timer.Enabled());
    timer.Interval(1);
    timer.Enabled(true);
    if constexpr (std::is_same_v<TypeParam, Real>)
        timer.Tick.subscribe([this] { this->side.ticked = true; });
    this->side.letTimePass();
    EXPECT_GE(this->events, 1);
    timer.Enabled(false);
    EXPECT_EQ(timer.Interval(), 1);
}

}  // namespace
}  // namespace velt
