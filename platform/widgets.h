// SPDX-License-Identifier: MIT
#pragma once

#include "platform/ado.h"
#include "platform/date.h"
#include "platform/event.h"
#include "platform/export.h"
#include "platform/propertybag.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

/// The widgets of a control as its logic sees them. Events are raised for what the operator does;
/// where an assignment by the logic raises one too, the member says so. Lists count from 0 unless
/// a member says otherwise; an index out of range raises RuntimeError 9. Lengths are twips: 15
/// are one logical pixel.
namespace velt {

/// Twips per logical pixel.
inline constexpr int TwipsPerPixel = 15;

class VELT_API Label {
public:
    virtual ~Label() = default;
    [[nodiscard]] virtual std::string Caption() const = 0;
    virtual void Caption(const std::string& text) = 0;
};

/// The surroundings of a control, or one of its frames, whose colours the host may set.
class VELT_API Frame {
public:
    virtual ~Frame() = default;
    virtual void BackColor(OleColor color) = 0;
    virtual void ForeColor(OleColor color) = 0;
};

class VELT_API Button {
public:
    virtual ~Button() = default;
    [[nodiscard]] virtual bool Enabled() const = 0;
    virtual void Enabled(bool enabled) = 0;

    Event<> Click;
};

class VELT_API CheckBox {
public:
    virtual ~CheckBox() = default;
    /// 0 or 1. Assigning another value than the present one raises Click.
    [[nodiscard]] virtual int Value() const = 0;
    virtual void Value(int value) = 0;

    Event<> Click;
};

/// Shows a part (date, or time of day) of a full date and time, and keeps all of it. An edit by
/// the operator changes only the part that is shown.
class VELT_API DatePicker {
public:
    virtual ~DatePicker() = default;
    [[nodiscard]] virtual Date Value() const = 0;
    /// Raises nothing.
    virtual void Value(const Date& value) = 0;

    /// The operator edited the value.
    Event<> Change;
};

/// A drop-down list. Starts empty and without selection; adding entries never selects.
class VELT_API ComboBox {
public:
    virtual ~ComboBox() = default;
    virtual void Clear() = 0;
    virtual void AddItem(const std::string& text) = 0;
    [[nodiscard]] virtual int ListCount() const = 0;
    [[nodiscard]] virtual std::string List(int index) const = 0;
    /// -1 without selection.
    [[nodiscard]] virtual int ListIndex() const = 0;
    /// Raises Click always, also for the present value.
    virtual void ListIndex(int index) = 0;
    /// Text of the selected entry, "" without selection.
    [[nodiscard]] virtual std::string Text() const = 0;

    Event<> Click;
};

/// A plain list box in which several rows may be selected.
class VELT_API ListBox {
public:
    virtual ~ListBox() = default;
    [[nodiscard]] virtual int ListCount() const = 0;
    [[nodiscard]] virtual std::string List(int index) const = 0;
    [[nodiscard]] virtual bool Selected(int index) const = 0;
};

/// A list of rows with check marks. Rows count from 1 and may be found by their key.
class VELT_API ListView {
public:
    virtual ~ListView() = default;
    virtual void Clear() = 0;
    /// Appends an unchecked row. An empty key is no key; a key in use raises RuntimeError 457.
    virtual void Add(const std::string& key, const std::string& text) = 0;
    [[nodiscard]] virtual int Count() const = 0;
    [[nodiscard]] virtual std::string Text(int row) const = 0;
    [[nodiscard]] virtual std::string Key(int row) const = 0;
    /// Row of a key, 0 when there is none.
    [[nodiscard]] virtual int RowOf(const std::string& key) const = 0;
    [[nodiscard]] virtual bool Checked(int row) const = 0;
    /// Raises nothing.
    virtual void Checked(int row, bool checked) = 0;
    /// The selected row, 0 when there is none.
    [[nodiscard]] virtual int SelectedItem() const = 0;
    /// Lays out the columns for the list's width, the first at least `minimum` pixels wide.
    virtual void AdjustColumns(int minimum, int column) = 0;

    Event<> DblClick;
    /// The operator has chosen a row, by mouse or keyboard, or has clicked the list anywhere.
    Event<> Click;
    /// The operator has activated the selected row: by Enter or a double click.
    Event<> ItemActivate;
};

/// A read-only grid that shows the rows of a DataControl.
class VELT_API DataGrid {
public:
    virtual ~DataGrid() = default;
    virtual void Visible(bool visible) = 0;
    virtual void AllowRowSizing(bool allow) = 0;
    virtual void Locked(bool locked) = 0;
    virtual void FontSize(int points) = 0;
    virtual void HeadFont(int points, bool bold) = 0;

    /// Takes the columns of the bound recordset anew, with their names as captions and default
    /// widths.
    virtual void ReBind() = 0;
    [[nodiscard]] virtual int ColumnCount() const = 0;
    [[nodiscard]] virtual std::string ColumnCaption(int column) const = 0;
    virtual void ColumnCaption(int column, const std::string& caption) = 0;
    /// Twips.
    [[nodiscard]] virtual double ColumnWidth(int column) const = 0;
    /// Raises nothing.
    virtual void ColumnWidth(int column, double twips) = 0;

    /// The operator has resized a column: once per drag, when it ends.
    Event<int> ColResize;
};

/// Binds a recordset to a grid, with a caption and buttons for the first, previous, next and last
/// record. It goes on showing the rows it has when the recordset is closed or a reopening fails.
class VELT_API DataControl {
public:
    virtual ~DataControl() = default;
    [[nodiscard]] virtual std::shared_ptr<velt::Recordset> Recordset() const = 0;
    /// Binds an open recordset and raises MoveComplete; so does every later Open of it.
    virtual void Recordset(const std::shared_ptr<velt::Recordset>& recordset) = 0;
    /// Of the rows that are shown; 0 while nothing is bound.
    [[nodiscard]] virtual std::int32_t RecordCount() const = 0;
    /// 1..RecordCount, 0 when there is no row.
    [[nodiscard]] virtual std::int32_t AbsolutePosition() const = 0;
    virtual void Caption(const std::string& text) = 0;

    /// The current record has moved.
    Event<> MoveComplete;
};

/// Fires every Interval milliseconds while enabled, never inside a handler of the control.
class VELT_API Timer {
public:
    virtual ~Timer() = default;
    [[nodiscard]] virtual int Interval() const = 0;
    virtual void Interval(int milliseconds) = 0;
    [[nodiscard]] virtual bool Enabled() const = 0;
    virtual void Enabled(bool enabled) = 0;

    Event<> Tick;
};

/// The columns of a list view, which count from 0. Twips.
class VELT_API ListColumns {
public:
    virtual ~ListColumns() = default;
    virtual void ColumnWidth(int column, int twips) = 0;
};

/// The small pictures before the texts of a list view, whose rows count from 1.
class VELT_API ListIcons {
public:
    virtual ~ListIcons() = default;
    /// Shows picture `icon` of the list's own; a number without a picture shows none.
    virtual void Icon(int row, int icon) = 0;
};

/// A widget whose size the logic governs. Twips, from the upper left corner of its parent; a
/// negative size raises RuntimeError 5.
class VELT_API Placed {
public:
    virtual ~Placed() = default;
    [[nodiscard]] virtual int Left() const = 0;
    [[nodiscard]] virtual int Top() const = 0;
    [[nodiscard]] virtual int Width() const = 0;
    virtual void Width(int twips) = 0;
    [[nodiscard]] virtual int Height() const = 0;
    virtual void Height(int twips) = 0;
};

/// The control itself as a widget of its host: outer size, and the inner size that its widgets
/// have for themselves. Twips.
class VELT_API Surface {
public:
    virtual ~Surface() = default;
    [[nodiscard]] virtual int Width() const = 0;
    virtual void Width(int twips) = 0;
    [[nodiscard]] virtual int Height() const = 0;
    virtual void Height(int twips) = 0;
    [[nodiscard]] virtual int ScaleWidth() const = 0;
    [[nodiscard]] virtual int ScaleHeight() const = 0;
};

class VELT_API TextBox {
public:
    virtual ~TextBox() = default;
    [[nodiscard]] virtual std::string Text() const = 0;
};

/// A table of texts whose rows are found by their key, in constant time. Rows count from 1 in the
/// order of their adding, whatever order is shown. Column 0 is the row's own text, the others are
/// its sub-items, "" at first. What is shown may follow the assignments after a moment, so that a
/// burst of them is painted once.
class VELT_API ReportList {
public:
    enum class Order { Ascending, Descending };

    virtual ~ReportList() = default;
    virtual void Clear() = 0;
    /// A key in use raises RuntimeError 457. `smallIcon` names a picture of the form's image list.
    virtual void Add(const std::string& key, const std::string& text,
                     const std::string& smallIcon) = 0;
    [[nodiscard]] virtual int Count() const = 0;
    [[nodiscard]] virtual std::string Key(int row) const = 0;
    /// Row of a key, 0 when there is none.
    [[nodiscard]] virtual int RowOf(const std::string& key) const = 0;
    virtual void SubItem(int row, int column, const std::string& text) = 0;
    /// The selected row, 0 when there is none.
    [[nodiscard]] virtual int SelectedItem() const = 0;

    /// The column that the rows are sorted by.
    [[nodiscard]] virtual int SortKey() const = 0;
    virtual void SortKey(int column) = 0;
    [[nodiscard]] virtual Order SortOrder() const = 0;
    virtual void SortOrder(Order order) = 0;

    /// The operator has clicked the head of a column.
    Event<int> ColumnClick;
};

/// A small area in a colour that the operator can press. A double click raises DblClick alone.
class VELT_API ColorLabel {
public:
    virtual ~ColorLabel() = default;
    [[nodiscard]] virtual OleColor BackColor() const = 0;
    virtual void BackColor(OleColor color) = 0;

    Event<> Click;
    Event<> DblClick;
};

/// A sign that is there or not.
class VELT_API Marker {
public:
    virtual ~Marker() = default;
    [[nodiscard]] virtual bool Visible() const = 0;
    virtual void Visible(bool visible) = 0;
};

class VELT_API ColorDialog {
public:
    virtual ~ColorDialog() = default;
    /// Lets the operator choose, beginning at `preset`; nothing when the dialog was cancelled.
    [[nodiscard]] virtual std::optional<OleColor> ShowColor(OleColor preset) = 0;
};

/// The mouse pointer over a control.
class VELT_API Pointer {
public:
    static constexpr int Default = 0;
    static constexpr int Hourglass = 11;

    virtual ~Pointer() = default;
    virtual void MousePointer(int shape) = 0;
};

}  // namespace velt
