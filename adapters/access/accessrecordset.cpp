// SPDX-License-Identifier: MIT
#include "adapters/access/accessrecordset.h"

#include "adapters/access/accessconnection.h"

namespace velt::access {

std::shared_ptr<const RowSet> AccessRecordset::query(
    const std::string& source, const std::shared_ptr<Connection>& connection) {
    return AccessConnection::of(connection).query(source);
}

}  // namespace velt::access
