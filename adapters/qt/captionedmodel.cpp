// SPDX-License-Identifier: MIT
#include "adapters/qt/captionedmodel.h"

namespace velt::qt {

int CaptionedModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(captions_.size());
}

QVariant CaptionedModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || section < 0 || section >= columnCount())
        return QAbstractTableModel::headerData(section, orientation, role);
    if (role == Qt::DisplayRole) return captions_[section];
    if (role == Qt::TextAlignmentRole) return QVariant(Qt::AlignVCenter | Qt::AlignLeft);
    return {};
}

Qt::ItemFlags CaptionedModel::flags(const QModelIndex& index) const {
    if (!index.isValid()) return Qt::NoItemFlags;
    return Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
}

}  // namespace velt::qt
