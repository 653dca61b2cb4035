// SPDX-License-Identifier: MIT
#include "platform/snapshotrecordset.h"

#include "platform/runtimeerror.h"

namespace velt {
namespace {

// What AbsolutePosition says where there is no record.
constexpr std::int32_t PositionUnknown = -1;
constexpr std::int32_t PositionBof = -2;
constexpr std::int32_t PositionEof = -3;

void require(bool condition, ErrorNumber otherwise) {
    if (!condition) throw RuntimeError(otherwise);
}

}  // namespace

void SnapshotRecordset::CursorLocation(int location) {
    require(!rows_, ErrorNumber::ObjectOpen);
    location_ = location;
}

void SnapshotRecordset::Open(const std::string& source,
                             const std::shared_ptr<Connection>& connection, int /*cursorType*/,
                             int /*lockType*/, int /*options*/) {
    require(!rows_, ErrorNumber::ObjectOpen);
    rows_ = query(source, connection);
    moveTo(RecordCount() == 0 ? 0 : 1);
}

void SnapshotRecordset::Close() {
    require(rows_ != nullptr, ErrorNumber::ObjectClosed);
    rows_ = nullptr;
}

std::int32_t SnapshotRecordset::RecordCount() const {
    return static_cast<std::int32_t>(rows()->rowCount());
}

std::int32_t SnapshotRecordset::AbsolutePosition() const {
    if (RecordCount() == 0) return PositionUnknown;
    if (BOF()) return PositionBof;
    return EOF_() ? PositionEof : position_;
}

void SnapshotRecordset::AbsolutePosition(std::int32_t position) {
    require(position >= 1 && position <= RecordCount(), ErrorNumber::InvalidCall);
    moveTo(position);
}

bool SnapshotRecordset::BOF() const { return RecordCount() == 0 || position_ < 1; }
bool SnapshotRecordset::EOF_() const { return RecordCount() == 0 || position_ > RecordCount(); }

void SnapshotRecordset::MoveFirst() {
    require(RecordCount() > 0, ErrorNumber::NoCurrentRecord);
    moveTo(1);
}

void SnapshotRecordset::MoveLast() {
    require(RecordCount() > 0, ErrorNumber::NoCurrentRecord);
    moveTo(RecordCount());
}

void SnapshotRecordset::MoveNext() {
    require(!EOF_(), ErrorNumber::NoCurrentRecord);
    moveTo(position_ + 1);
}

void SnapshotRecordset::MovePrevious() {
    require(!BOF(), ErrorNumber::NoCurrentRecord);
    moveTo(position_ - 1);
}

std::int32_t SnapshotRecordset::FieldCount() const {
    return static_cast<std::int32_t>(rows()->columnCount());
}

std::string SnapshotRecordset::FieldName(std::int32_t index) const {
    return rows()->columnName(fieldIndex(index));
}

Variant SnapshotRecordset::Field(std::int32_t index) const {
    const std::size_t column = fieldIndex(index);
    require(!BOF() && !EOF_(), ErrorNumber::NoCurrentRecord);
    return rows_->value(static_cast<std::size_t>(position_ - 1), column);
}

std::shared_ptr<const RowSet> SnapshotRecordset::rows() const {
    require(rows_ != nullptr, ErrorNumber::ObjectClosed);
    return rows_;
}

std::size_t SnapshotRecordset::fieldIndex(std::int32_t index) const {
    require(index >= 0 && index < FieldCount(), ErrorNumber::UnknownField);
    return static_cast<std::size_t>(index);
}

void SnapshotRecordset::moveTo(std::int32_t position) {
    position_ = position;
    MoveComplete.raise();
}

}  // namespace velt
