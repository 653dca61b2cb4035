// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/qt/gatedcontrol.h"
#include "adapters/qt/qtdatacontrol.h"
#include "adapters/qt/rowsetmodel.h"
#include "platform/dispatcher.h"
#include "platform/widgets.h"

#include <QPointer>
#include <QTableView>

#include <vector>

namespace velt::qt {

/// Shows the rows of a data control, whose current record is the view's current row. Read-only;
/// Ctrl+C copies the selected rows as tab-separated text.
class QtDataGrid final : public QObject, public DataGrid {
public:
    QtDataGrid(GatedControl& control, QTableView* view, QtDataControl& data, Dispatcher& dispatcher,
               const Locale& locale);
    ~QtDataGrid() override;
    void Visible(bool visible) override;
    void AllowRowSizing(bool allow) override;
    /// Nothing can be edited anyway.
    void Locked(bool) override {}
    void FontSize(int points) override;
    void HeadFont(int points, bool bold) override;
    void ReBind() override;
    [[nodiscard]] int ColumnCount() const override { return model_.columnCount(); }
    [[nodiscard]] std::string ColumnCaption(int column) const override;
    void ColumnCaption(int column, const std::string& caption) override;
    [[nodiscard]] double ColumnWidth(int column) const override;
    void ColumnWidth(int column, double twips) override;

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void showData();
    void showWidths();
    [[nodiscard]] int defaultWidth(int column) const;
    void currentRowChanged();
    void sectionResized(int column, int width);
    void copySelection();

    GatedControl& control_;
    QPointer<QTableView> view_;
    QtDataControl& data_;
    Dispatcher& dispatcher_;
    Locale locale_;
    RowSetModel model_;
    std::vector<double> widths_;  ///< twips
    bool showing_ = false;        ///< what the view signals is not the operator's doing
    bool mouseDown_ = false;      ///< on the header
    int resized_ = -1;            ///< column resized by the mouse since it went down
};

}  // namespace velt::qt
