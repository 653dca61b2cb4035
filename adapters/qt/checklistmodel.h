// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractTableModel>
#include <QIcon>

#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace velt::qt {

/// A small picture before the text of a row, and its meaning in words.
struct ListPicture {
    QIcon icon;
    QString meaning;
};

/// Rows with a check mark, or with a picture instead, found by their key in constant time. Rows
/// count from 0 here.
class CheckListModel : public QAbstractTableModel {
public:
    struct Row {
        std::string key;
        std::string text;
        bool checked = false;
        int picture = -1;
    };

    CheckListModel() = default;
    /// Without check marks.
    explicit CheckListModel(std::vector<ListPicture> pictures)
        : checkable_(false), pictures_(std::move(pictures)) {}

    [[nodiscard]] const std::vector<Row>& rows() const { return rows_; }
    void clear();
    /// False when the key is in use.
    bool add(const std::string& key, const std::string& text);
    void check(int row, bool checked);
    /// A number without a picture shows none.
    void setPicture(int row, int picture);
    /// -1 when there is none.
    [[nodiscard]] int rowOf(const std::string& key) const;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;

private:
    /// Null when there is none.
    [[nodiscard]] const ListPicture* pictureOf(const Row& row) const;

    bool checkable_ = true;
    std::vector<ListPicture> pictures_;
    std::vector<Row> rows_;
    std::unordered_map<std::string, int> rowOf_;
};

}  // namespace velt::qt
