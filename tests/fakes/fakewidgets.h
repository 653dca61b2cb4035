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

class FakeLabel final : public Label {
public:
    std::string Caption() const override { return caption_; }
    void Caption(const std::string& text) override { caption_ = text; }

private:
    std::string caption_;
};

class FakeFrame final : public Frame {
public:
    void BackColor(OleColor color) override { backColor = color; }
    void ForeColor(OleColor color) override { foreColor = color; }
    OleColor backColor = 0;
    OleColor foreColor = 0;
};

class FakeButton final : public Button {
public:
    bool Enabled() const override { return enabled_; }
    void Enabled(bool enabled) override { enabled_ = enabled; }
    // The operator.
    void click() {
        if (enabled_) Click.raise();
    }

private:
    bool enabled_ = true;
};

class FakeCheckBox final : public CheckBox {
public:
    int Value() const override { return value_; }
    void Value(int value) override {
        if (value == value_) return;
        value_ = value;
        Click.raise();
    }
    // The operator.
    void toggle() { Value(1 - value_); }

private:
    int value_ = 0;
};

class FakeDatePicker final : public DatePicker {
public:
    Date Value() const override { return value_; }
    void Value(const Date& value) override { value_ = value; }
    // The operator.
    void edit(const Date& value) {
        value_ = value;
        Change.raise();
    }

private:
    Date value_;
};

class FakeComboBox final : public ComboBox {
public:
    void Clear() override {
        entries_.clear();
        index_ = -1;
    }
    void AddItem(const std::string& text) override { entries_.push_back(text); }
    int ListCount() const override { return static_cast<int>(entries_.size()); }
    std::string List(int index) const override { return elementAt(entries_, index); }
    int ListIndex() const override { return index_; }
    void ListIndex(int index) override {
        if (index != -1) elementAt(entries_, index);
        index_ = index;
        Click.raise();
    }
    std::string Text() const override { return index_ < 0 ? "" : List(index_); }

private:
    std::vector<std::string> entries_;
    int index_ = -1;
};

class FakeListBox final : public ListBox {
public:
    struct Row {
        std::string text;
        bool selected = false;
    };
    int ListCount() const override { return static_cast<int>(rows.size()); }
    std::string List(int index) const override { return elementAt(rows, index).text; }
    bool Selected(int index) const override { return elementAt(rows, index).selected; }
    std::vector<Row> rows;
};

/// What a list of rows with keys does, whatever else its rows hold.
template <typename List, typename Row>
class KeyedRows : public List {
public:
    void Clear() override {
        rows.clear();
        rowOf_.clear();
        selected = 0;
    }
    int Count() const override { return static_cast<int>(rows.size()); }
    std::string Key(int row) const override { return elementAt(rows, row - 1).key; }
    int RowOf(const std::string& key) const override {
        const auto found = rowOf_.find(key);
        return found == rowOf_.end() ? 0 : found->second;
    }
    int SelectedItem() const override { return selected; }

    std::vector<Row> rows;
    int selected = 0;

protected:
    void append(Row row) {
        if (!row.key.empty() && !rowOf_.emplace(row.key, Count() + 1).second)
            throw RuntimeError(ErrorNumber::KeyInUse);
        rows.push_back(std::move(row));
    }

private:
    std::unordered_map<std::string, int> rowOf_;
};

struct ListViewRow {
    std::string key;
    std::string text;
    bool checked = false;
};

class FakeListView final : public KeyedRows<ListView, ListViewRow> {
public:
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
        selected = row;
        DblClick.raise();
        ItemActivate.raise();
    }
    void click(int row) {
        selected = row;
        Click.raise();
    }
    void activate(int row) {
        selected = row;
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

class FakeDataGrid final : public DataGrid {
public:
    explicit FakeDataGrid(FakeDataControl& data) : data_(data) {}
    void Visible(bool value) override { visible = value; }
    void AllowRowSizing(bool allow) override { rowSizing = allow; }
    void Locked(bool value) override { locked = value; }
    void FontSize(int points) override { fontSize = points; }
    void HeadFont(int points, bool bold) override { headFont = {points, bold}; }
    void ReBind() override {
        columns_.clear();
        const auto rows = data_.rows();
        for (std::size_t i = 0; rows && i < rows->columnCount(); ++i)
            columns_.push_back({rows->columnName(i), DefaultWidth});
    }
    int ColumnCount() const override { return static_cast<int>(columns_.size()); }
    std::string ColumnCaption(int column) const override {
        return elementAt(columns_, column).caption;
    }
    void ColumnCaption(int column, const std::string& caption) override {
        elementAt(columns_, column).caption = caption;
    }
    double ColumnWidth(int column) const override { return elementAt(columns_, column).width; }
    void ColumnWidth(int column, double twips) override {
        elementAt(columns_, column).width = twips;
    }
    // The operator.
    void drag(int column, double twips) {
        elementAt(columns_, column).width = twips;
        ColResize.raise(column);
    }

    static constexpr double DefaultWidth = 1500;
    bool visible = false;
    bool rowSizing = true;
    bool locked = false;
    int fontSize = 0;
    std::pair<int, bool> headFont;

private:
    struct Column {
        std::string caption;
        double width;
    };
    FakeDataControl& data_;
    std::vector<Column> columns_;
};

class FakeTimer final : public Timer {
public:
    int Interval() const override { return interval_; }
    void Interval(int milliseconds) override { interval_ = milliseconds; }
    bool Enabled() const override { return enabled_; }
    void Enabled(bool enabled) override { enabled_ = enabled; }
    // The passing of time.
    void fire() {
        if (enabled_) Tick.raise();
    }

private:
    int interval_ = 0;
    bool enabled_ = false;
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
        if (twips < 0) throw RuntimeError(ErrorNumber::InvalidCall);
        return twips;
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
    int width = 9435;
    int height = 4110;
    int border = 0;
};

class FakeColorLabel final : public ColorLabel {
public:
    OleColor BackColor() const override { return color_; }
    void BackColor(OleColor color) override { color_ = color; }
    // The operator.
    void click() { Click.raise(); }
    void doubleClick() { DblClick.raise(); }

private:
    OleColor color_ = 0;
};

class FakeMarker final : public Marker {
public:
    bool Visible() const override { return visible_; }
    void Visible(bool visible) override { visible_ = visible; }

private:
    bool visible_ = false;
};

class FakeColorDialog final : public ColorDialog {
public:
    std::optional<OleColor> ShowColor(OleColor color) override {
        preset = color;
        if (failure) throw RuntimeError(*failure);
        return answer;
    }
    OleColor preset = 0;
    std::optional<OleColor> answer;  ///< none: the operator cancels
    std::optional<RuntimeError> failure;
};

class FakePointer final : public Pointer {
public:
    void MousePointer(int shape) override { shapes.push_back(shape); }
    std::vector<int> shapes;
};

}  // namespace velt::fakes
