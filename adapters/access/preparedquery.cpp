// SPDX-License-Identifier: MIT
#include "adapters/access/preparedquery.h"

#include "adapters/access/collation.h"
#include "adapters/access/enclosed.h"
#include "adapters/access/queryerror.h"
#include "adapters/access/timeline.h"
#include "adapters/access/virtualtable.h"

#include <sqlite3.h>

#include <optional>
#include <utility>
#include <vector>

namespace velt::access {
namespace {

constexpr std::size_t RowsBetweenChecks = 4096;

// How the engine begins its messages about names.
constexpr std::string_view NoTable = "no such table: ";
constexpr std::string_view NoColumn = "no such column: ";
constexpr std::string_view AmbiguousColumn = "ambiguous column name: ";
constexpr std::string_view NoFunction = "no such function: ";
constexpr std::string_view ForbiddenFunction = "not authorized to use function: ";
constexpr std::string_view ForbiddenTable = "access to ";

/// What follows `prefix` in the message; nothing when it begins otherwise.
std::optional<std::string> subject(const std::string& message, std::string_view prefix) {
    if (!message.starts_with(prefix)) return std::nullopt;
    return message.substr(prefix.size());
}

}  // namespace

PreparedQuery::PreparedQuery(Translation translation, std::string_view statement,
                             QueryContext& context)
    : translation_(std::move(translation)),
      statementText_(statement),
      context_(context),
      engine_(context) {
    prepare();
}

void PreparedQuery::prepare() {
    // The engine names what it misses, one thing after the other; each turn adds a table or
    // corrects a name, or ends.
    for (;;) {
        SqliteEngine::Failure failure;
        statement_ = engine_.prepare(translation_.sql, failure);
        if (statement_) return;
        if (const auto table = subject(failure.message, NoTable)) {
            if (!context_.database->hasTable(*table)) throw unknownTable(*table);
            engine_.addTable(*table);
        } else if (const auto column = subject(failure.message, NoColumn)) {
            if (!correctSpelling(*column)) throw unknownColumn(*column);
        } else {
            fail(failure);
        }
    }
}

/// The engine ignores the letter case of ASCII names alone.
bool PreparedQuery::correctSpelling(const std::string& column) {
    const std::string wanted = column.substr(column.rfind('.') + 1);
    const std::string folded = foldCase(wanted);
    for (const TableReader& reader : context_.tables) {
        for (const jet::Column& candidate : reader.table().columns()) {
            if (candidate.name == wanted || foldCase(candidate.name) != folded) continue;
            const std::size_t place = translation_.sql.find(enclosed(wanted, '"'));
            if (place == std::string::npos) return false;
            translation_.replace(place, enclosed(wanted, '"').size(),
                                 enclosed(candidate.name, '"'));
            return true;
        }
    }
    return false;
}

void PreparedQuery::fail(const SqliteEngine::Failure& failure) const {
    const std::string& message = failure.message;
    if (const auto column = subject(message, AmbiguousColumn))
        throw RuntimeError(queryerror::AmbiguousColumn,
                           "La colonna \"" + *column + "\" si trova in più tabelle");
    for (const std::string_view prefix : {NoFunction, ForbiddenFunction})
        if (const auto function = subject(message, prefix))
            throw RuntimeError(queryerror::UnknownFunction,
                               "Funzione sconosciuta: \"" + *function + "\"");
    if (const auto table = subject(message, ForbiddenTable))
        throw unknownTable(table->substr(0, table->find('.')));
    if (failure.code == SQLITE_AUTH || message == "not authorized")
        throw RuntimeError(ErrorNumber::UnsupportedStatement);
    const std::size_t place =
        failure.offset < 0 ? statementText_.size()
                           : translation_.sourcePlace(static_cast<std::size_t>(failure.offset));
    // A word out of place is told by the place; anything else by the engine's own words.
    const bool told = message.ends_with("syntax error") || message == "incomplete input";
    throw syntaxError(told ? std::string_view() : message, statementText_, place);
}

FieldType PreparedQuery::columnType(int column) const {
    const FieldType declared = declaredType(sqlite3_column_decltype(statement_.get(), column));
    const auto index = static_cast<std::size_t>(column);
    if (declared != FieldType::Unknown || index >= translation_.extremeOf.size() ||
        translation_.extremeOf[index].empty())
        return declared;
    FieldType type = FieldType::Unknown;
    for (const TableReader& reader : context_.tables) {
        const int source = reader.table().columnIndex(translation_.extremeOf[index]);
        if (source < 0) continue;
        const FieldType found =
            fieldType(reader.table().columns()[static_cast<std::size_t>(source)]);
        if (type != FieldType::Unknown && type != found) return FieldType::Unknown;
        type = found;
    }
    return type;
}

void PreparedQuery::append(int column, Column& target) const {
    sqlite3_stmt* statement = statement_.get();
    switch (sqlite3_column_type(statement, column)) {
        case SQLITE_NULL: return target.appendNull();
        case SQLITE_INTEGER: target.assume(FieldType::Long); break;
        case SQLITE_FLOAT: target.assume(FieldType::Double); break;
        default: {
            // As bytes: asking for text would copy it for the sake of a closing zero.
            const auto* bytes = static_cast<const char*>(sqlite3_column_blob(statement, column));
            const auto size = static_cast<std::size_t>(sqlite3_column_bytes(statement, column));
            return target.append(bytes == nullptr ? std::string_view("")
                                                  : std::string_view(bytes, size));
        }
    }
    const double number = sqlite3_column_double(statement, column);
    target.append(target.type() == FieldType::Date ? fromTimeline(number) : number);
}

std::shared_ptr<const ResultRows> PreparedQuery::readAll() {
    std::vector<std::string> names;
    std::vector<Column> columns;
    const int count = sqlite3_column_count(statement_.get());
    for (int i = 0; i < count; ++i) {
        names.emplace_back(sqlite3_column_name(statement_.get(), i));
        columns.emplace_back(columnType(i));
    }
    MemoryUse memory(context_.control);
    for (std::size_t row = 1; engine_.step(statement_.get()); ++row) {
        for (int i = 0; i < count; ++i) append(i, columns[static_cast<std::size_t>(i)]);
        if (row % RowsBetweenChecks != 0) continue;
        std::size_t bytes = 0;
        for (const Column& column : columns) bytes += column.bytes() + column.dictionary().bytes();
        memory.set(bytes);
        context_.control.check();
    }
    return std::make_shared<const ResultRows>(std::move(names), std::move(columns));
}

}  // namespace velt::access
