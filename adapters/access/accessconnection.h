// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/access/queryengine.h"
#include "platform/ado.h"
#include "platform/dispatcher.h"

#include <cstdint>
#include <functional>
#include <string>

namespace velt::access {

/// Told of rows of a file that a query had to leave out because they could not be taken apart.
using UnreadableRowsReport = std::function<void(const std::string& path, std::uint64_t rows)>;

/// A connection to an Access file. Nothing is held open between queries, so a file may be replaced
/// or grow meanwhile, and a cancelled query leaves the connection as it was. Used on the
/// user-interface thread; the file is touched through the dispatcher alone.
class AccessConnection final : public Connection {
public:
    /// Closed. `dispatcher` must outlive the connection.
    AccessConnection(std::string path, Dispatcher& dispatcher, UnreadableRowsReport report = {});

    /// The AccessConnection that `connection` is; RuntimeError 3709 when it is another, or closed.
    [[nodiscard]] static AccessConnection& of(const std::shared_ptr<Connection>& connection);

    [[nodiscard]] int State() const override { return state_; }
    /// Checks that the file can be used. RuntimeError 3705 when it is open already.
    void Open() override;
    void Close() override;

    [[nodiscard]] std::shared_ptr<const RowSet> query(const std::string& statement);
    [[nodiscard]] bool hasTable(const std::string& table);
    /// Rows that the last query left out.
    [[nodiscard]] std::uint64_t unreadableRows() const { return unreadableRows_; }

private:
    void requireOpen() const;

    std::string path_;
    Dispatcher& dispatcher_;
    UnreadableRowsReport report_;
    int state_ = ado::StateClosed;
    std::uint64_t unreadableRows_ = 0;
};

}  // namespace velt::access
