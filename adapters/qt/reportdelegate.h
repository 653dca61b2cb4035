// SPDX-License-Identifier: MIT
#pragma once

#include <QStyledItemDelegate>

namespace velt::qt {

/// Paints the cells of a ReportListModel: a row whose state is not normal in bold italics, in a
/// colour that is legible on light and dark grounds.
class ReportDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;
};

}  // namespace velt::qt
