// SPDX-License-Identifier: MIT
// The widget contract, over the fakes that the logic is tested with and over the real widgets.
#include "tests/adapters/qt/widgetcontract.h"

#include "tests/errorof.h"

namespace velt {
namespace {

using Sides = testing::Types<Fakes, Real>;
TYPED_TEST_SUITE(WidgetContract, Sides);

TYPED_TEST(WidgetContract, ACheckBoxClicksForTheOperatorAndForAnotherValue) {
    auto& box = this->side.box;
    box.Click.subscribe([&] { this->log += std::to_string(box.Value()); });
    for (const int value : {0, 1, 1}) box.Value(value);
    this->side.toggle();
    EXPECT_EQ(this->log, "10");
}

TYPED_TEST(WidgetContract, ADatePickerChangesForTheOperatorOnlyAndKeepsAllOfItsValue) {
    auto& time = this->side.time;
    this->note(this->side.date.Change, "date");
    this->note(time.Change, "time");
    const Date first = Date::fromFields({2006, 3, 14, 18, 45, 12, 345});
    const Date skipped = Date::fromFields({2024, 3, 31, 2, 30, 0, 0});  // by summer time
    for (const Date& moment :
         {first, skipped, Date::fromFields({100, 1, 1, 0, 0, 0, 0}),
          Date::fromFields({9999, 12, 31, 23, 59, 59, 0}), Date(-1.25), Date(1e9)}) {
        this->side.date.Value(moment);
        time.Value(moment);
        EXPECT_EQ(this->side.date.Value().serial(), moment.serial());
        EXPECT_EQ(time.Value().serial(), moment.serial());
    }
    EXPECT_EQ(this->takeLog(), "");

    time.Value(first);
    this->side.editHour(7);
    EXPECT_EQ(this->takeLog().substr(0, 5), "time ");
    EXPECT_EQ(time.Value(), Date::fromFields({2006, 3, 14, 7, 45, 12, 345}));
    time.Value(skipped);
    this->side.editHour(3);
    EXPECT_EQ(time.Value(), Date::fromFields({2024, 3, 31, 3, 30, 0, 0}));
}

TYPED_TEST(WidgetContract, AComboBoxNeverSelectsByItselfAndAlwaysClicksWhenAssigned) {
    auto& combo = this->side.combo;
    combo.Click.subscribe([&] { this->log += combo.Text() + ","; });
    for (const char* entry : {"uno", "due", "due"}) combo.AddItem(entry);
    EXPECT_EQ(combo.ListIndex(), -1);
    EXPECT_EQ(combo.Text(), "");
    for (const int index : {1, 1, 2, -1, -1, 0}) combo.ListIndex(index);
    for (const int index : {3, -2})
        EXPECT_EQ(errorOf([&] { combo.ListIndex(index); }), ErrorNumber::SubscriptOutOfRange);
    EXPECT_EQ(this->log, "due,due,due,,,uno,");
}

TYPED_TEST(WidgetContract, AListFindsRowsByKeyAndMarksThemSilently) {
    auto& list = this->side.list;
    this->note(list.Click, "click");
    this->note(list.DblClick, "double");
    this->note(list.ItemActivate, "activate");
    list.Add("k1", "uno");
    list.Add("", "due");
    EXPECT_EQ(errorOf([&] { list.Add("k1", "again"); }), ErrorNumber::KeyInUse);
    EXPECT_EQ(list.Count(), 2);
    EXPECT_EQ(list.RowOf("k1"), 1);
    EXPECT_EQ(list.RowOf("k2"), 0);
    list.Checked(2, true);
    EXPECT_TRUE(list.Checked(2));
    for (const int row : {0, 3})
        EXPECT_EQ(errorOf([&] { list.Checked(row, true); }), ErrorNumber::SubscriptOutOfRange);
    EXPECT_EQ(list.SelectedItem(), 0);
    EXPECT_EQ(this->log, "");

    for (const int times : {1, 2}) {
        this->side.click(1);
        EXPECT_EQ(this->takeLog(), "click ") << times;
    }
    this->side.doubleClick(2);
    EXPECT_NE(this->takeLog().find("double activate "), std::string::npos);
    EXPECT_EQ(list.SelectedItem(), 2);
    EXPECT_TRUE(list.Checked(2)) << "the logic flips it, not the list";
}

TYPED_TEST(WidgetContract, ADataControlFollowsItsRecordsetAndOutlivesItsClosing) {
    auto& data = this->side.data;
    data.MoveComplete.subscribe([&] {
        this->log += std::to_string(data.AbsolutePosition()) + "/" +
                     std::to_string(data.RecordCount()) + " ";
    });
    const auto recordset = this->bind(4);
    this->side.grid.ReBind();
    this->side.moveTo(3);
    EXPECT_EQ(recordset->AbsolutePosition(), 3);
    recordset->Close();
    EXPECT_EQ(data.AbsolutePosition(), 3);
    this->side.moveTo(2);
    recordset->Open("q", this->connection, 3, 1, -1);
    EXPECT_EQ(this->log, "1/4 3/4 2/4 1/4 ");
}

TYPED_TEST(WidgetContract, AGridTakesColumnsOnReBindAndTellsResizesByTheOperator) {
    auto& grid = this->side.grid;
    this->note(grid.ColResize, "resize");
    this->bind(3);
    EXPECT_EQ(grid.ColumnCount(), 0);
    grid.ReBind();
    ASSERT_EQ(grid.ColumnCount(), 2);
    const double usual = grid.ColumnWidth(0);
    EXPECT_GT(usual, 0);
    for (const double width : {0.0, 1801.0, 900000.0, 1500.0}) {
        grid.ColumnWidth(0, width);
        EXPECT_EQ(grid.ColumnWidth(0), width);
    }
    EXPECT_EQ(this->log, "");
    this->side.drag(0, 160);
    EXPECT_EQ(this->log, "resize ") << "once per drag";
    EXPECT_EQ(grid.ColumnWidth(0), 2400);
    for (const int column : {-1, 2})
        EXPECT_EQ(errorOf([&] { grid.ColumnWidth(column, 10); }), ErrorNumber::SubscriptOutOfRange);

    this->bind(2);
    EXPECT_EQ(grid.ColumnWidth(0), 2400) << "kept until the columns are taken anew";
    grid.ReBind();
    EXPECT_EQ(grid.ColumnCaption(0), "x_1");
    EXPECT_EQ(grid.ColumnWidth(0), usual);
}

}  // namespace
}  // namespace velt
