// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractTableModel>

#include <string>
#include <unordered_map>
#include <vector>

namespace velt::qt {

/// Rows with a check mark, found by their key in constant time. Rows count from 0 here.
class CheckListModel : public QAbstractTableModel {
public:
    struct Row {
        std::string key;
        std::string text;
        bool checked = false;
    };

    [[nodiscard]] const std::vector<Row>& rows() const { return rows_; }
    void clear();
    /// False when the key is in use.
    bool add(const std::string& key, const std::string& text);
    void check(int row, bool checked);
    /// -1 when there is none.
    [[nodiscard]] int rowOf(const std::string& key) const;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;

private:
    std::vector<Row> rows_;
    std::unordered_map<std::string, int> rowOf_;
};

}  // namespace velt::qt
