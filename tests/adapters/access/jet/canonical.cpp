// SPDX-License-Identifier: MIT
#include "tests/adapters/access/jet/canonical.h"

#include "platform/conversions.h"

#include <bit>
#include <cmath>
#include <cstdio>

namespace velt::jet::test {
namespace {

using Blob = std::vector<std::uint8_t>;

class Fnv1a {
public:
    void cell(const std::string& text) {
        for (const char c : text + '\x1F')
            hash_ = (hash_ ^ static_cast<unsigned char>(c)) * 0x100000001B3ULL;
    }
    [[nodiscard]] std::uint64_t value() const { return hash_; }

private:
    std::uint64_t hash_ = 0xCBF29CE484222325ULL;
};

std::string hex(std::uint64_t value, int digits) {
    char text[17];
    std::snprintf(text, sizeof text, "%0*llx", digits, static_cast<unsigned long long>(value));
    return text;
}

std::string hex(std::span<const std::uint8_t> bytes) {
    std::string text;
    for (const std::uint8_t byte : bytes) text += hex(byte, 2);
    return text;
}

}  // namespace

std::string canonicalCell(Cursor& row, const Table& table, int index) {
    if (row.isNull(index)) return "N";
    switch (table.columns()[static_cast<std::size_t>(index)].type) {
        case ColumnType::Boolean: return row.boolean(index) ? "B1" : "B0";
        case ColumnType::Byte:
        case ColumnType::Integer:
        case ColumnType::Long:
        case ColumnType::BigInt:
        case ColumnType::ComplexId: return "I" + std::to_string(row.integer(index));
        case ColumnType::Currency: return "M" + std::to_string(row.integer(index));
        case ColumnType::Single:
            return "F" + hex(std::bit_cast<std::uint32_t>(static_cast<float>(row.real(index))), 8);
        case ColumnType::Double:
        case ColumnType::Date: return "D" + hex(std::bit_cast<std::uint64_t>(row.real(index)), 16);
        case ColumnType::Text:
        case ColumnType::Memo:
        case ColumnType::ExtendedDate: return "T" + std::string(row.text(index));
        case ColumnType::Binary:
        case ColumnType::Ole: return "X" + hex(row.bytes(index));
        case ColumnType::Guid: return "G{" + hex(row.bytes(index)) + "}";
        case ColumnType::Numeric: return "R" + row.numeric(index);
    }
    return "?";
}

Digest digest(const Table& table) {
    Fnv1a hash;
    for (const Column& column : table.columns())
        hash.cell(column.name + ":" + std::to_string(static_cast<int>(column.type)));
    Digest result;
    const int columns = static_cast<int>(table.columns().size());
    for (Cursor rows(table); rows.next(); ++result.rows)
        for (int i = 0; i < columns; ++i) hash.cell(canonicalCell(rows, table, i));
    result.hash = hex(hash.value(), 16);
    return result;
}

std::string canonical(ColumnType type, const Variant& value) {
    const auto bits = [](double number) {
        return "D" + hex(std::bit_cast<std::uint64_t>(number), 16);
    };
    if (type == ColumnType::Boolean) return value == Variant(true) ? "B1" : "B0";
    if (value.isNull()) return "N";
    if (type == ColumnType::Currency)
        return "M" + std::to_string(std::llround(value.get<double>() * 10000.0));
    if (value.holds<float>()) return "F" + hex(std::bit_cast<std::uint32_t>(value.get<float>()), 8);
    if (value.holds<double>()) return bits(value.get<double>());
    if (value.holds<Date>()) return bits(value.get<Date>().serial());
    if (value.holds<std::string>())
        return (type == ColumnType::Numeric ? "R" : "T") + value.get<std::string>();
    if (!value.holds<Blob>()) return "I" + conversions::text(value, Locale::italian());
    const std::string digits = hex(value.get<Blob>());
    return type == ColumnType::Guid ? "G{" + digits + "}" : "X" + digits;
}

}  // namespace velt::jet::test
