// SPDX-License-Identifier: MIT
#pragma once

#include "platform/snapshotrecordset.h"

namespace velt::access {

/// The rows of a query on an AccessConnection; RuntimeError 3709 for a connection that is closed or
/// not of this library. Used on the user-interface thread.
class AccessRecordset final : public SnapshotRecordset {
private:
    [[nodiscard]] std::shared_ptr<const RowSet> query(
        const std::string& source, const std::shared_ptr<Connection>& connection) override;
};

}  // namespace velt::access
