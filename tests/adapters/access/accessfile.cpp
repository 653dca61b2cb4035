// SPDX-License-Identifier: MIT
#include "tests/adapters/access/accessfile.h"

#include "adapters/access/plaintext.h"
#include "platform/isodate.h"

#include <type_traits>

namespace velt::access {
namespace {

std::string textOf(const Variant& value) {
    return std::visit(
        [](const auto& held) -> std::string {
            using T = std::decay_t<decltype(held)>;
            if constexpr (std::is_same_v<T, Null>)
                return "-";
            else if constexpr (std::is_same_v<T, std::string>)
                return held;
            else if constexpr (std::is_same_v<T, bool>)
                return held ? "true" : "false";
            else if constexpr (std::is_same_v<T, Date>)
                return plainText(held);
            else if constexpr (std::is_arithmetic_v<T>)
                return plainText(static_cast<double>(held));
            else
                return "?";
        },
        value.storage());
}

}  // namespace

void AccessFile::addTable(const std::string& name,
                          const std::vector<jet::ColumnDefinition>& columns,
                          const std::vector<Row>& rows) {
    {
        jet::Writer writer =
            std::filesystem::exists(path_) ? jet::Writer::open(path_) : jet::Writer::create(path_);
        writer.createTable(name, columns);
    }
    append(name, rows);
}

void AccessFile::append(const std::string& table, const std::vector<Row>& rows) const {
    jet::Writer writer = jet::Writer::open(path_);
    for (const Row& row : rows) writer.append(table, row);
}

void AccessFile::addAlarms() {
    using jet::ColumnType;
    const Null null;
    addTable("Allarmi",
             {{"Data", ColumnType::Date},
              {"VRX", ColumnType::Text, 50},
              {"Allarme", ColumnType::Text, 100},
              {"Descrizione", ColumnType::Text, 255},
              {"Evento", ColumnType::Text, 50}},
             {
                 // Not in the order of time; stations and alarms in several spellings.
                 {date("2006-03-14 07:30:00"), "RTU01", "Livello alto", "primo", "Attivo"},
                 {date("2006-03-14 07:29:59"), "rtu01 ", "Livello alto", "secondo", "Attivo"},
                 {date("2006-04-18 07:30:00"), "RTU02", "livello ALTO", null, "Rientrato"},
                 {date("2006-04-18 07:30:01"), "RTU02", "Torbidità", "", "Attivo"},
                 {null, "RTU03", "TORBIDITÀ", "senza data", null},
                 {date("2006-03-20 00:00:00"), null, "Torbidita", "senza nome", "Attivo"},
                 {date("2006-03-20 00:00:00"), "", "Porta", "nome vuoto", "Attivo"},
                 {date("2006-03-15 12:00:00"), "L'Aquila", "Porta", "apostrofo", "Attivo"},
                 {date("1850-06-01 18:00:00"), "RTU10", "Antico", "la sera", "Attivo"},
                 {date("1850-06-01 06:00:00"), "RTU10", "Antico", "il mattino", "Attivo"},
                 {date("9999-12-31 23:59:59"), "RTU10", "Futuro", "alla fine", "Attivo"},
                 {null, null, null, null, null},
             });
}

std::shared_ptr<const ResultRows> AccessFile::query(const std::string& statement) const {
    return QueryEngine(path_).run(statement).rows;
}

std::vector<std::string> AccessFile::texts(const std::string& statement) const {
    const auto rows = query(statement);
    std::vector<std::string> result;
    for (std::size_t row = 0; row < rows->rowCount(); ++row) {
        std::string text;
        for (std::size_t column = 0; column < rows->columnCount(); ++column)
            text += (column > 0 ? "|" : "") + textOf(rows->value(row, column));
        result.push_back(text);
    }
    return result;
}

RuntimeError AccessFile::error(const std::string& statement) const {
    return raisedBy([&] { static_cast<void>(query(statement)); });
}

Date date(const std::string& text) { return fromIsoText(text).value(); }

}  // namespace velt::access
