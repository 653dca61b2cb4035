// SPDX-License-Identifier: MIT
#include "adapters/access/accessconnection.h"

#include "adapters/access/jet/database.h"
#include "adapters/access/jet/fileerror.h"
#include "platform/paths.h"

#include <chrono>
#include <memory>
#include <optional>
#include <utility>

namespace velt::access {
namespace {

/// For queries with an operator who waits and can cancel: the limit only ends what would never end.
constexpr QueryLimits OperatorLimits{.runTime = std::chrono::minutes(10)};

std::filesystem::path existing(const std::string& path) {
    const std::optional<std::filesystem::path> file = resolvePath(path);
    if (!file) throw jet::fileError(ErrorNumber::FileNotFound, path, "non esiste");
    return *file;
}

}  // namespace

AccessConnection::AccessConnection(std::string path, Dispatcher& dispatcher,
                                   UnreadableRowsReport report)
    : path_(std::move(path)), dispatcher_(dispatcher), report_(std::move(report)) {}

AccessConnection& AccessConnection::of(const std::shared_ptr<Connection>& connection) {
    auto* const access = dynamic_cast<AccessConnection*>(connection.get());
    if (access == nullptr || access->state_ == ado::StateClosed)
        throw RuntimeError(ErrorNumber::InvalidConnection);
    return *access;
}

// The steps below may be left to end by themselves when their wait is cancelled: what they touch
// is theirs, by value or shared.

void AccessConnection::Open() {
    if (state_ != ado::StateClosed) throw RuntimeError(ErrorNumber::ObjectOpen);
    dispatcher_.run([path = path_](const std::stop_token&) {
        static_cast<void>(jet::Database::open(existing(path)));
    });
    state_ = ado::StateOpen;
}

void AccessConnection::Close() {
    requireOpen();
    state_ = ado::StateClosed;
}

std::shared_ptr<const RowSet> AccessConnection::query(const std::string& statement) {
    requireOpen();
    const auto result = std::make_shared<QueryResult>();
    dispatcher_.run([result, path = path_, statement](const std::stop_token& stop) {
        *result = QueryEngine(existing(path), OperatorLimits).run(statement, stop);
    });
    unreadableRows_ = result->unreadableRows;
    if (unreadableRows_ > 0 && report_) report_(path_, unreadableRows_);
    return result->rows;
}

bool AccessConnection::hasTable(const std::string& table) {
    requireOpen();
    const auto found = std::make_shared<bool>(false);
    dispatcher_.run([found, path = path_, table](const std::stop_token&) {
        *found = QueryEngine(existing(path)).hasTable(table);
    });
    return *found;
}

void AccessConnection::requireOpen() const {
    if (state_ == ado::StateClosed) throw RuntimeError(ErrorNumber::ObjectClosed);
}

}  // namespace velt::access
