// SPDX-License-Identifier: MIT
#include "adapters/access/distinctquery.h"

#include "adapters/access/collation.h"
#include "adapters/access/queryerror.h"
#include "adapters/access/textorder.h"
#include "adapters/access/timeline.h"
#include "adapters/access/tokenmatcher.h"

#include <algorithm>
#include <utility>

namespace velt::access {
namespace {

void appendTexts(const Column& source, bool descending, Column& target) {
    const TextDictionary& texts = source.dictionary();
    std::vector<std::uint32_t> ids = textOrder(texts);
    const auto same = [&texts](std::uint32_t a, std::uint32_t b) {
        return compareText(texts.text(a), texts.text(b)) == 0;
    };
    ids.erase(std::unique(ids.begin(), ids.end(), same), ids.end());
    if (descending) std::ranges::reverse(ids);
    for (const std::uint32_t id : ids) target.append(texts.text(id));
}

void appendNumbers(const Column& source, bool descending, Column& target) {
    std::vector<double> numbers;
    for (const double number : source.numbers())
        if (number == number) numbers.push_back(number);
    std::ranges::sort(numbers);
    numbers.erase(std::unique(numbers.begin(), numbers.end()), numbers.end());
    if (descending) std::ranges::reverse(numbers);
    const bool dates = source.type() == FieldType::Date;
    for (const double number : numbers) target.append(dates ? fromTimeline(number) : number);
}

bool holdsNull(const Column& column) {
    for (std::size_t row = 0; row < column.size(); ++row)
        if (column.isNull(row)) return true;
    return false;
}

}  // namespace

std::optional<DistinctQuery> recogniseDistinct(const std::vector<SqlToken>& tokens) {
    DistinctQuery query;
    TokenMatcher match(tokens);
    if (!match.word("SELECT")) return std::nullopt;
    bool distinct = match.word("DISTINCT");
    if (!match.name(query.column) || !match.word("FROM") || !match.name(query.table))
        return std::nullopt;
    if (match.word("GROUP")) {
        if (!match.word("BY") || !match.name(query.column)) return std::nullopt;
        distinct = true;
    }
    if (match.word("ORDER")) {
        if (!match.word("BY") || !match.name(query.column)) return std::nullopt;
        query.descending = match.word("DESC");
        if (!query.descending) match.word("ASC");
    }
    if (!distinct || !match.end()) return std::nullopt;
    return query;
}

std::shared_ptr<const ResultRows> runDistinct(const DistinctQuery& query, QueryContext& context) {
    TableReader& reader = context.open(query.table);
    const jet::Table& table = reader.table();
    const int index = table.columnIndex(query.column);
    if (index < 0) throw unknownColumn(query.column);

    Selection selection;
    selection.columns.resize(table.columns().size());
    selection.columns[static_cast<std::size_t>(index)] = true;
    const std::shared_ptr<const TableSnapshot> snapshot = reader.read(selection);
    const Column& source = snapshot->column(index);

    Column target(source.type());
    const bool null = holdsNull(source);
    if (null && !query.descending) target.appendNull();
    if (source.type() == FieldType::Text)
        appendTexts(source, query.descending, target);
    else
        appendNumbers(source, query.descending, target);
    if (null && query.descending) target.appendNull();

    std::vector<Column> columns;
    columns.push_back(std::move(target));
    return std::make_shared<const ResultRows>(
        std::vector<std::string>{table.columns()[static_cast<std::size_t>(index)].name},
        std::move(columns));
}

}  // namespace velt::access
