// SPDX-License-Identifier: MIT
#include "adapters/access/cellreader.h"

#include "adapters/access/tablesnapshot.h"
#include "adapters/access/timeline.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <span>
#include <string_view>

namespace velt::access {
namespace {

constexpr double CurrencyUnits = 10'000.0;

void appendHex(std::string& text, std::uint8_t byte) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    text += digits[byte >> 4];
    text += digits[byte & 15];
}

std::string hexadecimal(std::span<const std::uint8_t> bytes) {
    std::string text;
    text.reserve(bytes.size() * 2);
    for (const std::uint8_t byte : bytes) appendHex(text, byte);
    return text;
}

/// {XXXXXXXX-XXXX-XXXX-XXXX-XXXXXXXXXXXX}; the first three groups are stored low byte first.
std::string guidText(std::span<const std::uint8_t> bytes) {
    if (bytes.size() != 16) return hexadecimal(bytes);
    constexpr std::size_t order[] = {3, 2, 1, 0, 5, 4, 7, 6, 8, 9, 10, 11, 12, 13, 14, 15};
    std::string text = "{";
    for (std::size_t i = 0; i < 16; ++i) {
        if (i == 4 || i == 6 || i == 8 || i == 10) text += '-';
        appendHex(text, bytes[order[i]]);
    }
    return text + "}";
}

double decimalNumber(const std::string& text) {
    double number = std::numeric_limits<double>::quiet_NaN();
    std::from_chars(text.data(), text.data() + text.size(), number);
    return number;
}

}  // namespace

CellReader::CellReader(const jet::Column& column, int index)
    : type_(column.type), index_(index), fieldType_(fieldType(column)) {}

void CellReader::read(jet::Cursor& cursor, std::vector<Column>& columns) {
    using jet::ColumnType;
    Column& target = columns[static_cast<std::size_t>(index_)];
    if (cursor.isNull(index_)) return target.appendNull();
    switch (type_) {
        case ColumnType::Boolean: return target.append(cursor.boolean(index_) ? -1.0 : 0.0);
        case ColumnType::Byte:
        case ColumnType::Integer:
        case ColumnType::Long:
        case ColumnType::ComplexId:
        case ColumnType::BigInt: return target.append(static_cast<double>(cursor.integer(index_)));
        case ColumnType::Currency:
            return target.append(static_cast<double>(cursor.integer(index_)) / CurrencyUnits);
        case ColumnType::Numeric: return target.append(decimalNumber(cursor.numeric(index_)));
        case ColumnType::Single:
        case ColumnType::Double: return target.append(cursor.real(index_));
        case ColumnType::Date: return target.append(toTimeline(cursor.real(index_)));
        case ColumnType::Text: return readStoredText(cursor, target);
        case ColumnType::Memo:
        case ColumnType::ExtendedDate: return target.append(cursor.text(index_));
        case ColumnType::Binary:
        case ColumnType::Ole:
            return target.append(std::string_view(hexadecimal(cursor.bytes(index_))));
        case ColumnType::Guid:
            return target.append(std::string_view(guidText(cursor.bytes(index_))));
    }
}

std::size_t CellReader::bytes() const {
    return texts_->bytes() + stored_.bytes() + decoded_.capacity() * sizeof(decoded_[0]);
}

void CellReader::readStoredText(jet::Cursor& cursor, Column& target) {
    const std::span<const std::uint8_t> raw = cursor.raw(index_);
    const std::uint32_t stored =
        stored_.intern({reinterpret_cast<const char*>(raw.data()), raw.size()});
    if (stored == decoded_.size()) decoded_.push_back(texts_->intern(cursor.text(index_)));
    target.appendText(decoded_[stored]);
}

}  // namespace velt::access
