// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractTableModel>
#include <QStringList>

#include <utility>

namespace velt::qt {

/// A read-only table whose columns have captions, and which has as many columns as captions.
class CaptionedModel : public QAbstractTableModel {
public:
    [[nodiscard]] const QStringList& captions() const { return captions_; }

    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;

protected:
    explicit CaptionedModel(QStringList captions) : captions_(std::move(captions)) {}

    QStringList captions_;
};

}  // namespace velt::qt
