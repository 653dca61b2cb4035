// SPDX-License-Identifier: MIT
#include "adapters/access/sqliteengine.h"

#include "adapters/access/functions.h"
#include "adapters/access/queryerror.h"
#include "adapters/access/virtualtable.h"

#include <sqlite3.h>

#include <utility>

namespace velt::access {
namespace {

constexpr int InstructionsBetweenChecks = 2000;
// Longest value that a query may handle or make.
constexpr int LongestValue = 64 * 1024 * 1024;
constexpr int MostColumns = 512;
constexpr int MostUnions = 50;

[[noreturn]] void fail(sqlite3* handle) {
    throw RuntimeError(ErrorNumber::InvalidCall,
                       std::string("Errore interno della query: ") + sqlite3_errmsg(handle));
}

}  // namespace

SqliteEngine::SqliteEngine(QueryContext& context) : context_(context) {
    constexpr int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_MEMORY | SQLITE_OPEN_NOMUTEX;
    const int result = sqlite3_open_v2(":memory:", &handle_, flags, nullptr);
    try {
        if (result != SQLITE_OK) fail(handle_);
        configure();
    } catch (...) {
        sqlite3_close(handle_);
        throw;
    }
}

SqliteEngine::~SqliteEngine() { sqlite3_close(handle_); }

void SqliteEngine::Finalizer::operator()(sqlite3_stmt* statement) const {
    sqlite3_finalize(statement);
}

void SqliteEngine::configure() {
    sqlite3_drop_modules(handle_, nullptr);
    sqlite3_db_config(handle_, SQLITE_DBCONFIG_ENABLE_LOAD_EXTENSION, 0, nullptr);
    sqlite3_db_config(handle_, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
    sqlite3_db_config(handle_, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
    // A name in double quotes is never taken for a text when there is no such column.
    sqlite3_db_config(handle_, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
    sqlite3_limit(handle_, SQLITE_LIMIT_ATTACHED, 0);
    sqlite3_limit(handle_, SQLITE_LIMIT_LENGTH, LongestValue);
    sqlite3_limit(handle_, SQLITE_LIMIT_COLUMN, MostColumns);
    sqlite3_limit(handle_, SQLITE_LIMIT_COMPOUND_SELECT, MostUnions);
    sqlite3_limit(handle_, SQLITE_LIMIT_VARIABLE_NUMBER, 0);
    sqlite3_limit(handle_, SQLITE_LIMIT_WORKER_THREADS, 0);
    // Sorting keeps to memory, which is counted, and never fills the disk.
    if (sqlite3_exec(handle_, "PRAGMA temp_store = MEMORY", nullptr, nullptr, nullptr) != SQLITE_OK)
        fail(handle_);
    registerFunctions(handle_, context_);
    sqlite3_progress_handler(handle_, InstructionsBetweenChecks, progress, &context_);
    sqlite3_set_authorizer(handle_, authorize, this);
}

void SqliteEngine::addTable(const std::string& name) {
    tables_.insert(name);
    registerTable(handle_, name, context_);
}

int SqliteEngine::progress(void* context) {
    auto& query = *static_cast<QueryContext*>(context);
    return query.guarded([&query] { query.control.check(); }) ? 0 : 1;
}

int SqliteEngine::authorize(void* self, int action, const char* first, const char* second,
                            const char*, const char*) {
    const auto& engine = *static_cast<SqliteEngine*>(self);
    if (engine.context_.declaring) return SQLITE_OK;
    switch (action) {
        case SQLITE_SELECT: return SQLITE_OK;
        case SQLITE_READ:
            return first != nullptr && engine.tables_.contains(first) ? SQLITE_OK : SQLITE_DENY;
        case SQLITE_FUNCTION:
            return second != nullptr && isAllowedFunction(second) ? SQLITE_OK : SQLITE_DENY;
        default: return SQLITE_DENY;
    }
}

SqliteEngine::Statement SqliteEngine::prepare(const std::string& sql, Failure& failure) {
    sqlite3_stmt* statement = nullptr;
    const int result =
        sqlite3_prepare_v2(handle_, sql.data(), static_cast<int>(sql.size()), &statement, nullptr);
    Statement prepared(statement);
    rethrow();
    if (result == SQLITE_OK && prepared) return prepared;
    failure = {sqlite3_errmsg(handle_), sqlite3_error_offset(handle_), result};
    return nullptr;
}

bool SqliteEngine::step(sqlite3_stmt* statement) {
    const int result = sqlite3_step(statement);
    rethrow();
    if (result == SQLITE_ROW) return true;
    if (result == SQLITE_DONE) return false;
    if (result == SQLITE_NOMEM || result == SQLITE_TOOBIG)
        throw RuntimeError(queryerror::OutOfMemory,
                           "Memoria insufficiente: la query ne richiede troppa");
    fail(handle_);
}

void SqliteEngine::rethrow() {
    if (context_.failure) std::rethrow_exception(std::exchange(context_.failure, nullptr));
}

}  // namespace velt::access
