// SPDX-License-Identifier: MIT
#include "tests/adapters/access/jet/everytype.h"

#include "platform/runtimeerror.h"
#include "tests/adapters/access/jet/canonical.h"

#include <limits>
#include <utility>

namespace velt::jet::test {
namespace {

using Blob = std::vector<std::uint8_t>;

Blob blob(std::size_t size) {
    Blob bytes(size);
    for (std::size_t i = 0; i < size; ++i) bytes[i] = static_cast<std::uint8_t>(i * 7 + i / 256);
    return bytes;
}

/// Text of `size` characters that shows where a part is missing or out of place.
std::string longText(std::size_t size) {
    std::string text;
    while (text.size() < size) text += std::to_string(text.size()) + ';';
    text.resize(size);
    return text;
}

Row usualRow() {
    return {true,
            std::uint8_t{200},
            std::int16_t{-1234},
            std::int32_t{123456},
            1234.5678,
            1.5F,
            -2.25,
            Date(38456.75),
            blob(20),
            std::string("Livello serbatoio"),
            blob(300),
            std::string("Perché l'allarme è così"),
            blob(16),
            std::string("-1234.5000")};
}

constexpr std::size_t TextColumn = 9;
constexpr std::size_t OleColumn = 10;
constexpr std::size_t MemoColumn = 11;

Row with(std::size_t column, Variant value) {
    Row row = usualRow();
    row[column] = std::move(value);
    return row;
}

}  // namespace

std::vector<ColumnDefinition> everyType() {
    return {{"Bool", ColumnType::Boolean},    {"Byte", ColumnType::Byte},
            {"Intero", ColumnType::Integer},  {"Lungo", ColumnType::Long},
            {"Valuta", ColumnType::Currency}, {"Singola", ColumnType::Single},
            {"Doppia", ColumnType::Double},   {"Data", ColumnType::Date},
            {"Binario", ColumnType::Binary},  {"Testo", ColumnType::Text, 100},
            {"Oggetto", ColumnType::Ole},     {"Località", ColumnType::Memo},
            {"Codice", ColumnType::Guid},     {"Decimale", ColumnType::Numeric, 0, 18, 4}};
}

std::vector<Row> everyTypeRows() {
    std::vector<Row> rows{usualRow()};
    const double largest = std::numeric_limits<double>::max();
    rows.push_back({false, std::uint8_t{0}, std::int16_t{-32768}, std::int32_t{INT32_MIN},
                    -922337203685477.0, -std::numeric_limits<float>::max(), -largest,
                    Date(-657434.0), blob(0), std::string(), blob(0), std::string(), blob(16),
                    std::string("-99999999999999.9999")});
    rows.push_back({true, std::uint8_t{255}, std::int16_t{32767}, std::int32_t{INT32_MAX},
                    922337203685477.0, std::numeric_limits<float>::denorm_min(), largest,
                    Date(2958465.99999), blob(255), std::string(100, 'x'), blob(64),
                    std::string(64, 'm'), blob(16), std::string("0.0001")});
    rows.push_back(Row(everyType().size(), Variant(Null{})));
    for (std::size_t i = 0; i < everyType().size(); ++i) rows.push_back(with(i, Null{}));
    // Stored plain, compressed, and as characters that only fit in two bytes (and in Jet 3 in the
    // part of its code page that is not Latin-1).
    for (const char* text : {"a", "ab", "abc", "à", "àèì", "€ 5", "€ uro", " spazi  ", "l'ape"})
        rows.push_back(with(TextColumn, std::string(text)));
    // Inline up to 64 bytes, then one row up to what a page holds (2032 or 4076), then a chain.
    for (const std::size_t size : {61U, 62U, 63U, 64U, 65U, 2031U, 2032U, 2033U, 4074U, 4075U,
                                   4076U, 4077U, 8144U, 8145U, 30000U}) {
        rows.push_back(with(MemoColumn, longText(size)));
        rows.push_back(with(OleColumn, blob(size)));
    }
    return rows;
}

void writeTable(Writer& writer, const std::string& name,
                const std::vector<ColumnDefinition>& columns, const std::vector<Row>& rows) {
    writer.createTable(name, columns);
    for (const Row& row : rows) writer.append(name, row);
    writer.flush();
}

void writeEveryType(const std::filesystem::path& path, Version version) {
    Writer writer = Writer::create(path, version);
    writeTable(writer, "T", everyType(), everyTypeRows());
    writeTable(writer, "Vuota", everyType(), {});
}

Reading readEverything(const std::filesystem::path& path) {
    Reading reading;
    const auto database = Database::open(path);
    for (const std::string& name : database->tableNames()) {
        ++reading.tables;
        try {
            const Table table = database->table(name);
            Cursor rows(table);
            while (rows.next()) {
                ++reading.rows;
                for (int i = 0; i < static_cast<int>(table.columns().size()); ++i) {
                    try {
                        static_cast<void>(canonicalCell(rows, table, i));
                        static_cast<void>(rows.raw(i));
                    } catch (const RuntimeError&) {
                        ++reading.errors;
                    }
                }
            }
            reading.unreadable += rows.unreadableRows();
        } catch (const RuntimeError&) {
            ++reading.errors;
        }
    }
    return reading;
}

}  // namespace velt::jet::test
