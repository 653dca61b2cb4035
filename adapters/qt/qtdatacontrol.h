// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/qt/gatedcontrol.h"
#include "adapters/qt/recordbar.h"
#include "platform/widgets.h"

#include <QPointer>

#include <memory>

namespace velt::qt {

/// Holds the rows of the last successful Open of its recordset, and a position in them; while the
/// recordset is open it moves along.
class QtDataControl final : public DataControl {
public:
    QtDataControl(GatedControl& control, RecordBar* bar);
    [[nodiscard]] std::shared_ptr<velt::Recordset> Recordset() const override { return recordset_; }
    void Recordset(const std::shared_ptr<velt::Recordset>& recordset) override;
    [[nodiscard]] std::int32_t RecordCount() const override;
    [[nodiscard]] std::int32_t AbsolutePosition() const override { return position_; }
    void Caption(const std::string& text) override;

    /// Null while nothing is bound.
    [[nodiscard]] const std::shared_ptr<const RowSet>& rows() const { return rows_; }
    /// Goes to a record; beyond the ends nothing happens.
    void moveTo(std::int32_t position);
    /// The rows or the position are others; comes before MoveComplete.
    Event<> Shown;

private:
    void moved();
    void move(MoveButton::Move move);
    void show();

    QPointer<RecordBar> bar_;
    std::shared_ptr<velt::Recordset> recordset_;
    std::shared_ptr<const RowSet> rows_;
    std::int32_t position_ = 0;
    /// Outlived by the subscription to a recordset that was bound before, or that lives on.
    std::shared_ptr<void> binding_;
    QObject connections_;
};

}  // namespace velt::qt
