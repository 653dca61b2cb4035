// SPDX-License-Identifier: MIT
#include "adapters/access/accessdatabase.h"

#include "adapters/access/accessrecordset.h"
#include "adapters/access/conditions.h"

#include <optional>
#include <utility>

namespace velt::access {

AccessDatabase::AccessDatabase(Dispatcher& dispatcher, UnreadableRowsReport report)
    : dispatcher_(dispatcher), report_(std::move(report)) {}

std::shared_ptr<Connection> AccessDatabase::GetConnection(const std::string& path,
                                                          const std::string& /*user*/,
                                                          const std::string& /*password*/,
                                                          int /*timeout*/, int /*location*/,
                                                          int /*mode*/) {
    auto connection = std::make_shared<AccessConnection>(path, dispatcher_, report_);
    connection->Open();
    return connection;
}

std::shared_ptr<Recordset> AccessDatabase::CreateRecordset() {
    return std::make_shared<AccessRecordset>();
}

std::string AccessDatabase::DateCondition(const std::string& field, bool startEnabled,
                                          const Date& start, bool endEnabled, const Date& end) {
    return dateCondition(field, startEnabled ? std::optional(start) : std::nullopt,
                         endEnabled ? std::optional(end) : std::nullopt);
}

std::string AccessDatabase::FieldCondition(const std::string& field, const std::string& value) {
    return fieldCondition(field, value);
}

bool AccessDatabase::TableExists(const std::shared_ptr<Connection>& connection,
                                 const std::string& table) {
    return AccessConnection::of(connection).hasTable(table);
}

}  // namespace velt::access
