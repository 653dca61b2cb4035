// SPDX-License-Identifier: MIT
#pragma once

#include "platform/locale.h"
#include "platform/rowset.h"

#include <QAbstractTableModel>
#include <QStringList>

#include <memory>

namespace velt::qt {

/// The rows of a query in the columns that a grid has taken from it.
class RowSetModel : public QAbstractTableModel {
public:
    explicit RowSetModel(const Locale& locale) : locale_(locale) {}

    [[nodiscard]] const std::shared_ptr<const RowSet>& rows() const { return rows_; }
    /// Null for none. The columns stay.
    void setRows(std::shared_ptr<const RowSet> rows);
    void setCaptions(QStringList captions);
    void setCaption(int column, const QString& caption);
    [[nodiscard]] const QStringList& captions() const { return captions_; }

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    Locale locale_;
    std::shared_ptr<const RowSet> rows_;
    QStringList captions_;
};

}  // namespace velt::qt
