// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/access/querycontext.h"

#include <memory>
#include <set>
#include <string>

struct sqlite3;
struct sqlite3_stmt;

namespace velt::access {

/// An SQL engine of its own for one query: no database of its own, no files, no extensions, nothing
/// but SELECT over the tables of the context's file and a short list of functions.
class SqliteEngine {
public:
    /// `context` must outlive the engine.
    explicit SqliteEngine(QueryContext& context);
    ~SqliteEngine();
    SqliteEngine(const SqliteEngine&) = delete;
    SqliteEngine& operator=(const SqliteEngine&) = delete;

    struct Finalizer {
        void operator()(sqlite3_stmt* statement) const;
    };
    using Statement = std::unique_ptr<sqlite3_stmt, Finalizer>;

    /// What went wrong, as far as the engine says it.
    struct Failure {
        std::string message;
        int offset = -1;  ///< in the statement, -1 when unknown
        int code = 0;
    };

    /// A prepared statement; null with `failure` set when the statement is at fault. Errors of the
    /// file, and a query that must stop, are RuntimeError.
    [[nodiscard]] Statement prepare(const std::string& sql, Failure& failure);
    /// Goes to the next row; false behind the last. Every error is a RuntimeError.
    [[nodiscard]] bool step(sqlite3_stmt* statement);
    /// Makes the table known under this name; it is opened when a statement uses it.
    void addTable(const std::string& name);

private:
    void configure();
    void rethrow();
    static int authorize(void* self, int action, const char* first, const char* second,
                         const char* database, const char* trigger);
    static int progress(void* context);

    QueryContext& context_;
    sqlite3* handle_ = nullptr;
    std::set<std::string> tables_;
};

}  // namespace velt::access
