// SPDX-License-Identifier: MIT
#pragma once

#include "platform/event.h"
#include "platform/export.h"
#include "platform/rowset.h"
#include "platform/variant.h"

#include <cstdint>
#include <memory>
#include <string>

namespace velt {

/// The shape of the ADO objects that the controls use; errors are RuntimeError.
namespace ado {
inline constexpr int StateClosed = 0;
inline constexpr int StateOpen = 1;
inline constexpr int UseServer = 2;     ///< CursorLocation of a new recordset
inline constexpr int UseClient = 3;     ///< CursorLocation
inline constexpr int OpenStatic = 3;    ///< CursorType
inline constexpr int LockReadOnly = 1;  ///< LockType
inline constexpr int OptionsUnspecified = -1;
}  // namespace ado

class VELT_API Connection {
public:
    virtual ~Connection() = default;
    [[nodiscard]] virtual int State() const = 0;
    virtual void Open() = 0;
    virtual void Close() = 0;
};

/// A client-side, static, read-only recordset: a snapshot of the rows with a cursor. When closed,
/// every member but State, CursorLocation and Open raises RuntimeError 3704.
class VELT_API Recordset {
public:
    virtual ~Recordset() = default;

    [[nodiscard]] virtual int CursorLocation() const = 0;
    virtual void CursorLocation(int location) = 0;
    [[nodiscard]] virtual int State() const = 0;
    /// Runs `source` and goes to the first row. When it fails the recordset stays closed.
    virtual void Open(const std::string& source, const std::shared_ptr<Connection>& connection,
                      int cursorType, int lockType, int options) = 0;
    virtual void Close() = 0;

    [[nodiscard]] virtual std::int32_t RecordCount() const = 0;
    /// 1..RecordCount; -2 before the first row, -3 behind the last, -1 when there is none.
    [[nodiscard]] virtual std::int32_t AbsolutePosition() const = 0;
    /// Goes to row `position` (1..RecordCount, else RuntimeError 5).
    virtual void AbsolutePosition(std::int32_t position) = 0;
    [[nodiscard]] virtual bool BOF() const = 0;
    [[nodiscard]] virtual bool EOF_() const = 0;
    virtual void MoveFirst() = 0;
    virtual void MoveLast() = 0;
    virtual void MoveNext() = 0;
    virtual void MovePrevious() = 0;

    [[nodiscard]] virtual std::int32_t FieldCount() const = 0;
    [[nodiscard]] virtual std::string FieldName(std::int32_t index) const = 0;
    /// Value of field `index` (from 0) in the current row.
    [[nodiscard]] virtual Variant Field(std::int32_t index) const = 0;

    /// All rows at once.
    [[nodiscard]] virtual std::shared_ptr<const RowSet> rows() const = 0;

    /// Raised after the current record has moved, also by Open.
    Event<> MoveComplete;
};

}  // namespace velt
