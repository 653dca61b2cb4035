// SPDX-License-Identifier: MIT
#include "adapters/qt/checklistmodel.h"

#include "adapters/qt/text.h"

#include <iterator>

namespace velt::qt {

void CheckListModel::clear() {
    beginResetModel();
    rows_.clear();
    rowOf_.clear();
    endResetModel();
}

bool CheckListModel::add(const std::string& key, const std::string& text) {
    const int row = static_cast<int>(rows_.size());
    if (!key.empty() && !rowOf_.emplace(key, row).second) return false;
    beginInsertRows({}, row, row);
    rows_.push_back({key, text});
    endInsertRows();
    return true;
}

void CheckListModel::check(int row, bool checked) {
    Row& changed = rows_[static_cast<std::size_t>(row)];
    if (changed.checked == checked) return;
    changed.checked = checked;
    const QModelIndex place = index(row, 0);
    emit dataChanged(place, place, {Qt::CheckStateRole});
}

void CheckListModel::setPicture(int row, int picture) {
    Row& changed = rows_[static_cast<std::size_t>(row)];
    if (changed.picture == picture) return;
    changed.picture = picture;
    const QModelIndex place = index(row, 0);
    emit dataChanged(place, place);
}

const ListPicture* CheckListModel::pictureOf(const Row& row) const {
    const bool known = row.picture >= 0 && row.picture < std::ssize(pictures_);
    return known ? &pictures_[static_cast<std::size_t>(row.picture)] : nullptr;
}

int CheckListModel::rowOf(const std::string& key) const {
    const auto found = rowOf_.find(key);
    return found == rowOf_.end() ? -1 : found->second;
}

int CheckListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int CheckListModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : 1;
}

QVariant CheckListModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
    const Row& row = rows_[static_cast<std::size_t>(index.row())];
    switch (role) {
        case Qt::DisplayRole: return toQt(row.text);
        case Qt::CheckStateRole:
            return checkable_ ? QVariant(row.checked ? Qt::Checked : Qt::Unchecked) : QVariant();
        default: break;
    }
    const ListPicture* picture = pictureOf(row);
    if (!picture) return {};
    const QString inWords = toQt(row.text) + QStringLiteral(": ") + picture->meaning;
    switch (role) {
        case Qt::DecorationRole: return picture->icon;
        case Qt::ToolTipRole: return inWords.toHtmlEscaped();
        case Qt::AccessibleTextRole: return inWords;
        default: return {};
    }
}

Qt::ItemFlags CheckListModel::flags(const QModelIndex& index) const {
    if (!index.isValid()) return Qt::NoItemFlags;
    const Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
    return checkable_ ? flags | Qt::ItemIsUserCheckable : flags;
}

bool CheckListModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (!checkable_ || role != Qt::CheckStateRole ||
        !checkIndex(index, CheckIndexOption::IndexIsValid))
        return false;
    check(index.row(), value.toInt() == Qt::Checked);
    return true;
}

}  // namespace velt::qt
