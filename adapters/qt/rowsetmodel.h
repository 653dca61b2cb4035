// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/qt/captionedmodel.h"
#include "platform/locale.h"
#include "platform/rowset.h"

#include <memory>

namespace velt::qt {

/// The rows of a query in the columns that a grid has taken from it.
class RowSetModel : public CaptionedModel {
public:
    explicit RowSetModel(const Locale& locale) : CaptionedModel({}), locale_(locale) {}

    [[nodiscard]] const std::shared_ptr<const RowSet>& rows() const { return rows_; }
    /// Null for none. The columns stay.
    void setRows(std::shared_ptr<const RowSet> rows);
    void setCaptions(QStringList captions);
    void setCaption(int column, const QString& caption);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

private:
    Locale locale_;
    std::shared_ptr<const RowSet> rows_;
};

}  // namespace velt::qt
