// SPDX-License-Identifier: MIT
#include "adapters/qt/reportdelegate.h"

#include "adapters/qt/reportlistmodel.h"

namespace velt::qt {
namespace {

constexpr int Dark = 128;  ///< lightness (of 255)

QColor abnormalColor(const QPalette& palette) {
    const bool isDark = palette.color(QPalette::Base).lightness() < Dark;
    return isDark ? QColor(0xff, 0xb0, 0x70) : QColor(0x9a, 0x2b, 0x00);
}

}  // namespace

void ReportDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
    QStyledItemDelegate::initStyleOption(option, index);
    if (!index.data(ReportListModel::AbnormalRole).toBool()) return;
    if (option->text.isEmpty()) {
        option->text = index.data(ReportListModel::EmptyTextRole).toString();
        if (!option->text.isEmpty()) option->features |= QStyleOptionViewItem::HasDisplay;
    }
    option->font.setBold(true);
    option->font.setItalic(true);
    option->fontMetrics = QFontMetrics(option->font);
    option->palette.setColor(QPalette::Text, abnormalColor(option->palette));
}

}  // namespace velt::qt
