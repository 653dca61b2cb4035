// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/qt/gatedcontrol.h"
#include "adapters/qt/reportlistmodel.h"
#include "platform/widgets.h"

#include <QPointer>
#include <QTableView>
#include <QTimer>

namespace velt::qt {

/// Sets the view up as a sortable table of one selected row. Assignments come into view at most
/// ten times a second, together. The selected row stays selected wherever sorting moves it; one
/// that the filter hides is no longer selected. Keeps its rows when the view is gone.
class QtReportList final : public QObject, public ReportList {
public:
    QtReportList(GatedControl& control, QTableView* view, ReportLayout layout,
                 const Locale& locale);
    ~QtReportList() override;
    void Clear() override;
    void Add(const std::string& key, const std::string& text,
             const std::string& smallIcon) override;
    [[nodiscard]] int Count() const override { return static_cast<int>(model_.rows().size()); }
    [[nodiscard]] std::string Key(int row) const override;
    [[nodiscard]] int RowOf(const std::string& key) const override { return model_.rowOf(key) + 1; }
    void SubItem(int row, int column, const std::string& text) override;
    [[nodiscard]] int SelectedItem() const override;
    [[nodiscard]] int SortKey() const override { return model_.sortColumn(); }
    void SortKey(int column) override;
    [[nodiscard]] Order SortOrder() const override;
    void SortOrder(Order order) override;

    /// Only hides rows: the list keeps them all. See ReportListModel::filter().
    void filter(const QString& text, bool onlyAbnormal);
    [[nodiscard]] int shownCount() const { return model_.rowCount(); }

    /// Rows have come into view or gone, or another one is selected.
    Event<> Shown;

private:
    void addSortActions();
    void clickColumn(int column);
    void sort(int column, Qt::SortOrder order);
    void schedule();
    void flush();
    void showSort();

    GatedControl& control_;
    QPointer<QTableView> view_;
    ReportListModel model_;
    QTimer flushTimer_;
};

}  // namespace velt::qt
