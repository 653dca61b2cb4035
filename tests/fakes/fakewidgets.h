// SPDX-License-Identifier: MIT
// Plain in-memory widgets that keep the widget contract. What an operator does is played by the
// members below "the operator".
#pragma once

#include "platform/runtimeerror.h"
#include "platform/widgets.h"

#include <optional>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace velt::fakes {

template <typename Container>
auto& elementAt(Container& container, int index) {
    if (index < 0 || index >= static_cast<int>(container.size()))
        throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
    return container[static_cast<std::size_t>(index)];
}

struct FakeLabel final : Label {
    std::string Caption() const override { return caption; }
    void Caption(const std::string& text) override { caption = text; }
    std::string caption;
};

struct FakeFrame final : Frame {
    void BackColor(OleColor color) override { backColor = color; }
    void ForeColor(OleColor color) override { foreColor = color; }
    OleColor backColor = 0, foreColor = 0;
};

struct FakeButton final : Button {
    bool Enabled() const override { return enabled; }
    void Enabled(bool value) override { enabled = value; }
    bool enabled = true;
    // The operator.
    void click() {
        if (enabled) Click.raise();
    }
};

struct FakeCheckBox final : CheckBox {
    int Value() const override { return checked; }
    void Value(int value) override {
        if (std::exchange(checked, value) != value) Click.raise();
    }
    int checked = 0;
    // The operator.
    void toggle() { Value(1 - checked); }
};

struct FakeDatePicker final : DatePicker {
    Date Value() const override { return date; }
    void Value(const Date& value) override { date = value; }
    Date date;
    // The operator.
    void edit(const Date& value) {
        date = value;
        Change.raise();
    }
};

struct FakeComboBox final : ComboBox {
    void Clear() override {
        entries.clear();
        selected = -1;
    }
    void AddItem(const std::string& text) override { entries.push_back(text); }
    int ListCount() const override { return static_cast<int>(entries.size()); }
    std::string List(int index) const override { return elementAt(entries, index); }
    int ListIndex() const override { return selected; }
    void ListIndex(int index) override {
        if (index != -1) elementAt(entries, index);
        selected = index;
        Click.raise();
    }
    std::string Text() const override { return selected < 0 ? "" : List(selected); }
    std::vector<std::string> entries;
    int selected = -1;
};

/// What a list of rows with keys does, whatever else its rows hold.
template <typename List, typename Row>
struct KeyedRows : List {
    void Clear() override {
        rows.clear();
        rowOf.clear();
        selected = 0;
    }
    int Count() const override { return static_cast<int>(rows.size()); }
    std::string Key(int row) const override { return elementAt(rows, row - 1).key; }
    int RowOf(const std::string& key) const override {
        const auto found = rowOf.find(key);
        return found == rowOf.end() ? 0 : found->second;
    }
    int SelectedItem() const override { return selected; }
    void append(Row row) {
        if (!row.key.empty() && !rowOf.emplace(row.key, Count() + 1).second)
            throw RuntimeError(ErrorNumber::KeyInUse);
        rows.push_back(std::move(row));
    }
    std::vector<Row> rows;
    std::unordered_map<std::string, int> rowOf;
    int selected = 0;
};

struct ListViewRow {
    std::string key;
    std::string text;
    bool checked = false;
};

struct FakeListView final : KeyedRows<ListView, ListViewRow> {
    void Add(const std::string& key, const std::string& text) override { append({key, text}); }
    std::string Text(int row) const override { return elementAt(rows, row - 1).text; }
    bool Checked(int row) const override { return elementAt(rows, row - 1).checked; }
    void Checked(int row, bool checked) override { elementAt(rows, row - 1).checked = checked; }
    void AdjustColumns(int minimum, int) override { adjustments.push_back(minimum); }
    std::vector<int> adjustments;
    std::vector<std::string> texts() const {
        std::vector<std::string> all;
        for (const ListViewRow& row : rows) all.push_back(row.text);
        return all;
    }
    // The operator.
    void select(int row) { selected = row; }
    void doubleClick(int row) {
        select(row);
        DblClick.raise();
        ItemActivate.raise();
    }
    void click(int row) {
        select(row);
        Click.raise();
    }
    void activate(int row) {
        select(row);
        ItemActivate.raise();
    }
};

class FakeDataControl final : public DataControl {
public:
    std::shared_ptr<velt::Recordset> Recordset() const override { return recordset_; }
    void Recordset(const std::shared_ptr<velt::Recordset>& recordset) override {
        recordset_ = recordset;
        rows_ = nullptr;
        position_ = 0;
        if (!recordset_) return;
        recordset_->MoveComplete.subscribe([this, bound = recordset_.get()] {
            if (bound == recordset_.get()) take();
        });
        take();
    }
    std::int32_t RecordCount() const override {
        return rows_ ? static_cast<std::int32_t>(rows_->rowCount()) : 0;
    }
    std::int32_t AbsolutePosition() const override { return position_; }
    void Caption(const std::string& text) override { caption = text; }
    std::string caption;
    std::shared_ptr<const RowSet> rows() const { return rows_; }
    // The operator.
    void moveTo(std::int32_t position) {
        position_ = position;
        if (recordset_->State() == ado::StateOpen)
            recordset_->AbsolutePosition(position);  // take() follows
        else
            MoveComplete.raise();
    }

private:
    void take() {
        rows_ = recordset_->rows();
        position_ = RecordCount() == 0 ? 0 : recordset_->AbsolutePosition();
        MoveComplete.raise();
    }
    std::shared_ptr<velt::Recordset> recordset_;
    std::shared_ptr<const RowSet> rows_;
    std::int32_t position_ = 0;
};

struct FakeDataGrid final : DataGrid {
    explicit FakeDataGrid(FakeDataControl& d) : data(d) {}
    void Visible(bool value) override { visible = value; }
    void AllowRowSizing(bool allow) override { looks.push_back(allow ? 1 : 0); }
    void Locked(bool locked) override { looks.push_back(locked ? 1 : 0); }
    void FontSize(int points) override { looks.push_back(points); }
    void HeadFont(int points, bool bold) override { looks.insert(looks.end(), {points, bold}); }
    void ReBind() override {
        columns.clear();
        const auto rows = data.rows();
        for (std::size_t i = 0; rows && i < rows->columnCount(); ++i)
            columns.emplace_back(rows->columnName(i), DefaultWidth);
    }
    int ColumnCount() const override { return static_cast<int>(columns.size()); }
    std::string ColumnCaption(int i) const override { return elementAt(columns, i).first; }
    void ColumnCaption(int i, const std::string& text) override {
        elementAt(columns, i).first = text;
    }
    double ColumnWidth(int i) const override { return elementAt(columns, i).second; }
    void ColumnWidth(int i, double twips) override { elementAt(columns, i).second = twips; }
    // The operator.
    void drag(int column, double twips) {
        ColumnWidth(column, twips);
        ColResize.raise(column);
    }

    static constexpr double DefaultWidth = 1500;
    FakeDataControl& data;
    bool visible = false;
    std::vector<int> looks;  ///< what sizing, lock and fonts were set to, in this order
    std::vector<std::pair<std::string, double>> columns;  ///< caption and width
};

struct FakeTimer final : Timer {
    int Interval() const override { return interval; }
    void Interval(int milliseconds) override { interval = milliseconds; }
    bool Enabled() const override { return enabled; }
    void Enabled(bool value) override { enabled = value; }
    int interval = 0;
    bool enabled = false;
    // The passing of time.
    void fire() {
        if (enabled) Tick.raise();
    }
};

struct FakeListColumns final : ListColumns {
    void ColumnWidth(int column, int twips) override { widths.emplace_back(column, twips); }
    std::vector<std::pair<int, int>> widths;
};

struct FakeListIcons final : ListIcons {
    void Icon(int row, int icon) override { icons.emplace_back(row, icon); }
    std::vector<std::pair<int, int>> icons;
};

class FakePlaced final : public Placed {
public:
    FakePlaced(int left, int top, int width, int height)
        : left_(left), top_(top), width_(width), height_(height) {}
    int Left() const override { return left_; }
    int Top() const override { return top_; }
    int Width() const override { return width_; }
    void Width(int twips) override { width_ = size(twips); }
    int Height() const override { return height_; }
    void Height(int twips) override { height_ = size(twips); }

private:
    static int size(int twips) {
        return twips < 0 ? throw RuntimeError(ErrorNumber::InvalidCall) : twips;
    }
    int left_, top_, width_, height_;
};

/// A control with a border around its inner size.
struct FakeSurface final : Surface {
    int Width() const override { return width; }
    void Width(int twips) override { width = twips; }
    int Height() const override { return height; }
    void Height(int twips) override { height = twips; }
    int ScaleWidth() const override { return width - border; }
    int ScaleHeight() const override { return height - border; }
    int width = 9435, height = 4110, border = 0;
};

struct FakeColorLabel final : ColorLabel {
    OleColor BackColor() const override { return color; }
    void BackColor(OleColor value) override { color = value; }
    OleColor color = 0;
    // The operator.
    void click() { Click.raise(); }
    void doubleClick() { DblClick.raise(); }
};

struct FakeMarker final : Marker {
    bool Visible() const override { return visible; }
    void Visible(bool value) override { visible = value; }
    bool visible = false;
};

struct FakeColorDialog final : ColorDialog {
    std::optional<OleColor> ShowColor(OleColor color) override {
        preset = color;
        if (failure) throw RuntimeError(*failure);
        return answer;
    }
    OleColor preset = 0;
    std::optional<OleColor> answer;  ///< none: the operator cancels
    std::optional<RuntimeError> failure;
};

struct FakePointer final : Pointer {
    void MousePointer(int shape) override { shapes.push_back(shape); }
    std::vector<int> shapes;
};

}  // namespace velt::fakes
