// SPDX-License-Identifier: MIT
#include "adapters/qt/rowsetmodel.h"

#include "adapters/qt/rowtext.h"
#include "adapters/qt/text.h"

#include <limits>
#include <utility>

namespace velt::qt {
namespace {

/// A cell is one line high.
QString oneLine(QString text) {
    text.replace(QStringLiteral("\r\n"), QStringLiteral(" "));
    for (QChar& c : text)
        if (c == QLatin1Char('\n') || c == QLatin1Char('\r') || c == QLatin1Char('\t'))
            c = QLatin1Char(' ');
    return text;
}

bool isNumber(const Variant& value) {
    const int code = value.typeCode();
    return (code >= vartype::I2 && code <= vartype::R8) || code == vartype::UI1;
}

}  // namespace

void RowSetModel::setRows(std::shared_ptr<const RowSet> rows) {
    beginResetModel();
    rows_ = std::move(rows);
    endResetModel();
}

void RowSetModel::setCaptions(QStringList captions) {
    beginResetModel();
    captions_ = std::move(captions);
    endResetModel();
}

void RowSetModel::setCaption(int column, const QString& caption) {
    captions_[column] = caption;
    emit headerDataChanged(Qt::Horizontal, column, column);
}

int RowSetModel::rowCount(const QModelIndex& parent) const {
    if (parent.isValid() || !rows_) return 0;
    constexpr auto Most = static_cast<std::size_t>(std::numeric_limits<int>::max());
    return static_cast<int>(std::min(rows_->rowCount(), Most));
}

QVariant RowSetModel::data(const QModelIndex& index, int role) const {
    const bool isText = role == Qt::DisplayRole || role == Qt::ToolTipRole;
    if (!isText && role != Qt::TextAlignmentRole) return {};
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
    const auto column = static_cast<std::size_t>(index.column());
    if (column >= rows_->columnCount()) return {};
    const Variant value = rows_->value(static_cast<std::size_t>(index.row()), column);
    if (role == Qt::TextAlignmentRole)
        return QVariant(Qt::AlignVCenter | (isNumber(value) ? Qt::AlignRight : Qt::AlignLeft));
    const QString text = toQt(cellText(value, locale_));
    return role == Qt::DisplayRole ? oneLine(text) : text.toHtmlEscaped();
}

}  // namespace velt::qt
