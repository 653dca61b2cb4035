// SPDX-License-Identifier: MIT
#include "adapters/access/timequery.h"

#include "adapters/access/dateliteral.h"
#include "adapters/access/timeline.h"
#include "adapters/access/tokenmatcher.h"

#include <algorithm>
#include <utility>

namespace velt::access {
namespace {

bool matchBound(TokenMatcher& match, std::string& column, std::string_view comparison,
                double& day) {
    std::string text;
    if (!match.name(column) || !match.sign(comparison) || !match.date(text)) return false;
    const std::optional<Date> date = parseDateLiteral(text);
    if (date) day = toTimeline(date->serial());
    return date.has_value();
}

/// Places of the columns in the table; nothing when one is missing or holds text.
std::optional<std::vector<int>> placesOf(const std::vector<std::string>& names,
                                         const jet::Table& table) {
    std::vector<int> places;
    for (const std::string& name : names) {
        places.push_back(table.columnIndex(name));
        if (places.back() < 0) return std::nullopt;
        const jet::Column& column = table.columns()[static_cast<std::size_t>(places.back())];
        if (fieldType(column) == FieldType::Text) return std::nullopt;
    }
    return places;
}

Column inOrder(const TableSnapshot& snapshot, int place) {
    const Column& source = snapshot.column(place);
    const bool dates = source.type() == FieldType::Date;
    Column target(source.type());
    target.reserve(snapshot.rowCount());
    for (std::size_t position = 0; position < snapshot.rowCount(); ++position) {
        const double number = source.number(snapshot.row(position));
        target.appendHeld(dates ? fromTimeline(number) : number);
    }
    return target;
}

}  // namespace

std::optional<TimeQuery> recogniseTimeQuery(const std::vector<SqlToken>& tokens) {
    TimeQuery query;
    TokenMatcher match(tokens);
    if (!match.word("SELECT")) return std::nullopt;
    do {
        if (!match.name(query.columns.emplace_back())) return std::nullopt;
    } while (match.sign(","));
    if (!match.word("FROM") || !match.nameOnly(query.table) || !match.word("WHERE"))
        return std::nullopt;
    const bool bracket = match.sign("(");
    if (!matchBound(match, query.dateColumn, ">=", query.low) || !match.word("AND") ||
        !matchBound(match, query.dateColumn, "<=", query.high) || (bracket && !match.sign(")")))
        return std::nullopt;
    if (!match.word("ORDER") || !match.word("BY") || !match.name(query.dateColumn) || !match.end())
        return std::nullopt;
    return query;
}

std::shared_ptr<const ResultRows> runTimeQuery(const TimeQuery& query, QueryContext& context) {
    if (!context.database->hasTable(query.table)) return nullptr;
    TableReader& reader = context.open(query.table);
    const jet::Table& table = reader.table();
    const auto places = placesOf(query.columns, table);
    const auto date = placesOf({query.dateColumn}, table);
    if (!places || !date) return nullptr;
    const int order = date->front();
    if (fieldType(table.columns()[static_cast<std::size_t>(order)]) != FieldType::Date)
        return nullptr;

    Selection selection;
    selection.columns.resize(table.columns().size());
    for (const int place : *places) selection.columns[static_cast<std::size_t>(place)] = true;
    selection.columns[static_cast<std::size_t>(order)] = true;
    selection.range = {.column = order, .low = query.low, .high = query.high};
    selection.orderColumn = order;
    const std::shared_ptr<const TableSnapshot> snapshot = reader.read(selection);

    std::vector<std::string> names;
    std::vector<Column> columns;
    for (const int place : *places) {
        names.push_back(table.columns()[static_cast<std::size_t>(place)].name);
        columns.push_back(inOrder(*snapshot, place));
    }
    return std::make_shared<const ResultRows>(std::move(names), std::move(columns));
}

}  // namespace velt::access
