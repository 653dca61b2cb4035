// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/qt/checklistmodel.h"
#include "adapters/qt/gatedcontrol.h"
#include "platform/widgets.h"

#include <QPointer>
#include <QTableView>

namespace velt::qt {

/// Sets the view up as a list with check boxes. The operator toggles a mark by a click on its box
/// or by the space bar; what activates a row (Enter, a double click) is the logic's. Keeps its rows
/// when the view is gone.
class QtListView final : public QObject, public ListView, public ListColumns, public ListIcons {
public:
    QtListView(GatedControl& control, QTableView* view);
    /// A list with these pictures instead of check boxes.
    QtListView(GatedControl& control, QTableView* view, std::vector<ListPicture> pictures);
    ~QtListView() override;
    void Clear() override { model_.clear(); }
    void Add(const std::string& key, const std::string& text) override;
    [[nodiscard]] int Count() const override { return model_.rowCount(); }
    [[nodiscard]] std::string Text(int row) const override;
    [[nodiscard]] std::string Key(int row) const override;
    [[nodiscard]] int RowOf(const std::string& key) const override;
    [[nodiscard]] bool Checked(int row) const override;
    void Checked(int row, bool checked) override;
    [[nodiscard]] int SelectedItem() const override;
    void AdjustColumns(int minimum, int column) override;
    /// From then on the column no longer follows the list's width.
    void ColumnWidth(int column, int twips) override;
    void Icon(int row, int icon) override;

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void setUp();
    [[nodiscard]] bool isOnCheckBox(const QPoint& position) const;
    void fitColumn();
    void activate();

    GatedControl& control_;
    QPointer<QTableView> view_;
    CheckListModel model_;
    int minimumWidth_ = 0;
    bool fitsColumn_ = true;
    bool ignoreRelease_ = false;
    bool mouseDown_ = false;
};

}  // namespace velt::qt
