// SPDX-License-Identifier: MIT
#pragma once

#include "platform/clock.h"
#include "platform/database.h"
#include "platform/dispatcher.h"
#include "platform/export.h"
#include "platform/filesystem.h"
#include "platform/locale.h"
#include "platform/messagebox.h"
#include "platform/opc.h"
#include "platform/runtimeclient.h"
#include "platform/runtimeerror.h"
#include "platform/settings.h"

namespace velt {

/// What the controls of one process share. A host makes one (or takes the standard one) and hands
/// it to every control; each service may be made on first use and lives as long as this object.
class VELT_API Services {
public:
    virtual ~Services() = default;
    virtual SettingsFactory& settings() = 0;
    virtual clsDatabase& database() = 0;
    virtual clsFileSystem& fileSystem() = 0;
    virtual clsRecordset& recordsets() = 0;
    virtual MessageBox& messageBox() = 0;
    virtual Clock& clock() = 0;
    virtual Dispatcher& dispatcher() = 0;
    virtual const Locale& locale() = 0;
    /// A process without OPC or without a runtime need not offer these: RuntimeError 91 then.
    virtual OPCServerFactory& opcServers() { throw RuntimeError(ErrorNumber::ObjectNotSet); }
    virtual RuntimeClientFactory& runtimeClients() {
        throw RuntimeError(ErrorNumber::ObjectNotSet);
    }
};

}  // namespace velt
