// SPDX-License-Identifier: MIT
#pragma once

#include "platform/ado.h"
#include "platform/date.h"
#include "platform/export.h"

#include <memory>
#include <string>

namespace velt {

/// The database helper that all controls of a process share.
class VELT_API clsDatabase {
public:
    virtual ~clsDatabase() = default;

    /// An open connection to the Access file `path`. The user name, the password and the numbers
    /// (time-out in seconds, cursor location, mode) are those that the callers have always passed;
    /// a local Access file needs none of them. Raises RuntimeError when the file cannot be used.
    [[nodiscard]] virtual std::shared_ptr<Connection> GetConnection(const std::string& path,
                                                                    const std::string& user,
                                                                    const std::string& password,
                                                                    int timeout, int location,
                                                                    int mode) = 0;
    [[nodiscard]] virtual std::shared_ptr<Recordset> CreateRecordset() = 0;
    /// SQL condition for `field` from `start` to `end`, both inclusive; a bound that is not
    /// enabled is left out; "" when neither is.
    [[nodiscard]] virtual std::string DateCondition(const std::string& field, bool startEnabled,
                                                    const Date& start, bool endEnabled,
                                                    const Date& end) = 0;
    /// SQL condition that `field` equals the text `value`.
    [[nodiscard]] virtual std::string FieldCondition(const std::string& field,
                                                     const std::string& value) = 0;
    [[nodiscard]] virtual bool TableExists(const std::shared_ptr<Connection>& connection,
                                           const std::string& table) = 0;
};

/// Closes recordsets.
class VELT_API clsRecordset {
public:
    virtual ~clsRecordset() = default;
    /// Closes `recordset` if there is one and it is open.
    virtual void Close(const std::shared_ptr<Recordset>& recordset) {
        if (recordset && recordset->State() != ado::StateClosed) recordset->Close();
    }
};

}  // namespace velt
