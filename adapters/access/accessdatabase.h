// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/access/accessconnection.h"
#include "platform/database.h"

#include <memory>
#include <string>

namespace velt::access {

/// The database helper over Access files. Used on the user-interface thread; everything that
/// touches a file runs through the dispatcher.
class AccessDatabase final : public clsDatabase {
public:
    /// `dispatcher` must outlive this object and its connections. `report` is told on the
    /// user-interface thread of the rows that a query had to leave out.
    explicit AccessDatabase(Dispatcher& dispatcher, UnreadableRowsReport report = {});

    /// The path is resolved as resolvePath() says, at each use. User, password and numbers are
    /// taken and ignored.
    [[nodiscard]] std::shared_ptr<Connection> GetConnection(const std::string& path,
                                                            const std::string& user,
                                                            const std::string& password,
                                                            int timeout, int location,
                                                            int mode) override;
    [[nodiscard]] std::shared_ptr<Recordset> CreateRecordset() override;
    /// See dateCondition().
    [[nodiscard]] std::string DateCondition(const std::string& field, bool startEnabled,
                                            const Date& start, bool endEnabled,
                                            const Date& end) override;
    [[nodiscard]] std::string FieldCondition(const std::string& field,
                                             const std::string& value) override;
    /// RuntimeError 3709 for a connection that is closed or not of this library.
    [[nodiscard]] bool TableExists(const std::shared_ptr<Connection>& connection,
                                   const std::string& table) override;

private:
    Dispatcher& dispatcher_;
    UnreadableRowsReport report_;
};

}  // namespace velt::access
