// SPDX-License-Identifier: MIT
#pragma once

#include "platform/ado.h"
#include "platform/export.h"

#include <memory>
#include <string>

namespace velt {

/// A recordset over the rows of a finished query: the cursor, whatever answers the query. Beside
/// 3704, members raise RuntimeError 3021 without a current record, 3265 for a field that is not
/// there, and 3705 where the recordset must be closed.
class VELT_API SnapshotRecordset : public Recordset {
public:
    [[nodiscard]] int CursorLocation() const override { return location_; }
    void CursorLocation(int location) override;
    [[nodiscard]] int State() const override { return rows_ ? ado::StateOpen : ado::StateClosed; }
    /// The recordset is always client-side, static and read-only, whatever the last three say.
    void Open(const std::string& source, const std::shared_ptr<Connection>& connection,
              int cursorType, int lockType, int options) override;
    void Close() override;

    [[nodiscard]] std::int32_t RecordCount() const override;
    [[nodiscard]] std::int32_t AbsolutePosition() const override;
    void AbsolutePosition(std::int32_t position) override;
    [[nodiscard]] bool BOF() const override;
    [[nodiscard]] bool EOF_() const override;
    void MoveFirst() override;
    void MoveLast() override;
    void MoveNext() override;
    void MovePrevious() override;

    [[nodiscard]] std::int32_t FieldCount() const override;
    [[nodiscard]] std::string FieldName(std::int32_t index) const override;
    [[nodiscard]] Variant Field(std::int32_t index) const override;
    [[nodiscard]] std::shared_ptr<const RowSet> rows() const override;

private:
    /// The rows of `source`, never null. RuntimeError when there are none to be had.
    [[nodiscard]] virtual std::shared_ptr<const RowSet> query(
        const std::string& source, const std::shared_ptr<Connection>& connection) = 0;

    [[nodiscard]] std::size_t fieldIndex(std::int32_t index) const;
    void moveTo(std::int32_t position);

    int location_ = ado::UseServer;
    std::shared_ptr<const RowSet> rows_;
    std::int32_t position_ = 0;  ///< 0 before the first row, RecordCount + 1 behind the last
};

}  // namespace velt
