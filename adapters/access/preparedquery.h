// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/access/dialect.h"
#include "adapters/access/querycontext.h"
#include "adapters/access/resultrows.h"
#include "adapters/access/sqliteengine.h"

#include <memory>
#include <string>
#include <string_view>

namespace velt::access {

/// A translated statement that the engine has accepted.
class PreparedQuery {
public:
    /// Makes the tables known that the statement names. `statement` is the original text, for the
    /// errors; it and `context` must outlive the query.
    PreparedQuery(Translation translation, std::string_view statement, QueryContext& context);

    [[nodiscard]] std::shared_ptr<const ResultRows> readAll();

private:
    void prepare();
    [[nodiscard]] bool correctSpelling(const std::string& column);
    [[noreturn]] void fail(const SqliteEngine::Failure& failure) const;
    [[nodiscard]] FieldType columnType(int column) const;
    void append(int column, Column& target) const;

    Translation translation_;
    std::string_view statementText_;
    QueryContext& context_;
    SqliteEngine engine_;
    SqliteEngine::Statement statement_;
};

}  // namespace velt::access
