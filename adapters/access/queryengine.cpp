// SPDX-License-Identifier: MIT
#include "adapters/access/queryengine.h"

#include "adapters/access/dialect.h"
#include "adapters/access/distinctquery.h"
#include "adapters/access/preparedquery.h"
#include "adapters/access/queryerror.h"
#include "adapters/access/sqltoken.h"
#include "adapters/access/timequery.h"

#include <algorithm>
#include <utility>

namespace velt::access {
namespace {

std::shared_ptr<const ResultRows> answer(std::string_view statement, QueryContext& context) {
    std::vector<SqlToken> tokens = tokenize(statement);
    if (const auto distinct = recogniseDistinct(tokens)) return runDistinct(*distinct, context);
    if (const auto timed = recogniseTimeQuery(tokens))
        if (auto rows = runTimeQuery(*timed, context)) return rows;
    PreparedQuery query(translate(std::move(tokens), statement), statement, context);
    return query.readAll();
}

}  // namespace

QueryEngine::QueryEngine(std::filesystem::path file, const QueryLimits& limits)
    : file_(std::move(file)), limits_(limits) {}

QueryResult QueryEngine::run(std::string_view statement, std::stop_token stop) const {
    if (statement.size() > limits_.statementLength)
        throw RuntimeError(ErrorNumber::SyntaxError, "L'istruzione SQL è troppo lunga");
    QueryContext context(jet::Database::open(file_), std::move(stop), limits_);
    QueryResult result{answer(statement, context)};
    for (const TableReader& table : context.tables) result.unreadableRows += table.unreadableRows();
    return result;
}

bool QueryEngine::hasTable(std::string_view name) const {
    return jet::Database::open(file_)->hasTable(name);
}

}  // namespace velt::access
