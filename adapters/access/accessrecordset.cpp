// SPDX-License-Identifier: MIT
#include "adapters/access/accessrecordset.h"

#include "adapters/access/accessconnection.h"
#include "adapters/access/adoerror.h"

namespace velt::access {
namespace {

// What AbsolutePosition says where there is no record.
constexpr std::int32_t PositionUnknown = -1;
constexpr std::int32_t PositionBof = -2;
constexpr std::int32_t PositionEof = -3;

}  // namespace

void AccessRecordset::CursorLocation(int location) {
    if (rows_) throw alreadyOpen();
    location_ = location;
}

void AccessRecordset::Open(const std::string& source, const std::shared_ptr<Connection>& connection,
                           int /*cursorType*/, int /*lockType*/, int /*options*/) {
    if (rows_) throw alreadyOpen();
    const auto access = std::dynamic_pointer_cast<AccessConnection>(connection);
    if (!access || access->State() == ado::StateClosed) throw invalidConnection();
    rows_ = access->query(source);
    moveTo(RecordCount() == 0 ? 0 : 1);
}

void AccessRecordset::Close() {
    opened();
    rows_ = nullptr;
}

std::int32_t AccessRecordset::RecordCount() const {
    return static_cast<std::int32_t>(opened().rowCount());
}

std::int32_t AccessRecordset::AbsolutePosition() const {
    if (RecordCount() == 0) return PositionUnknown;
    if (BOF()) return PositionBof;
    return EOF_() ? PositionEof : position_;
}

void AccessRecordset::AbsolutePosition(std::int32_t position) {
    if (position < 1 || position > RecordCount()) throw RuntimeError(ErrorNumber::InvalidCall);
    moveTo(position);
}

bool AccessRecordset::BOF() const { return RecordCount() == 0 || position_ < 1; }

bool AccessRecordset::EOF_() const { return RecordCount() == 0 || position_ > RecordCount(); }

void AccessRecordset::MoveFirst() {
    if (RecordCount() == 0) throw noCurrentRecord();
    moveTo(1);
}

void AccessRecordset::MoveLast() {
    if (RecordCount() == 0) throw noCurrentRecord();
    moveTo(RecordCount());
}

void AccessRecordset::MoveNext() {
    if (EOF_()) throw noCurrentRecord();
    moveTo(position_ + 1);
}

void AccessRecordset::MovePrevious() {
    if (BOF()) throw noCurrentRecord();
    moveTo(position_ - 1);
}

std::int32_t AccessRecordset::FieldCount() const {
    return static_cast<std::int32_t>(opened().columnCount());
}

std::string AccessRecordset::FieldName(std::int32_t index) const {
    return opened().columnName(fieldIndex(index));
}

Variant AccessRecordset::Field(std::int32_t index) const {
    const std::size_t column = fieldIndex(index);
    if (BOF() || EOF_()) throw noCurrentRecord();
    return opened().value(static_cast<std::size_t>(position_ - 1), column);
}

std::shared_ptr<const RowSet> AccessRecordset::rows() const {
    opened();
    return rows_;
}

const RowSet& AccessRecordset::opened() const {
    if (!rows_) throw RuntimeError(ErrorNumber::ObjectClosed);
    return *rows_;
}

std::size_t AccessRecordset::fieldIndex(std::int32_t index) const {
    if (index < 0 || index >= FieldCount()) throw unknownField();
    return static_cast<std::size_t>(index);
}

void AccessRecordset::moveTo(std::int32_t position) {
    position_ = position;
    MoveComplete.raise();
}

}  // namespace velt::access
