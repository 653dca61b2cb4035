// SPDX-License-Identifier: MIT
#include "adapters/standard/standardservices.h"

#include "adapters/ini/inisettings.h"
#include "adapters/qt/qtdispatcher.h"
#include "adapters/qt/qtmessagebox.h"

namespace velt {
namespace {

class StandardServices final : public Services {
public:
    SettingsFactory& settings() override { return settings_; }
    clsDatabase& database() override { throw RuntimeError(ErrorNumber::ObjectNotSet); }
    clsFileSystem& fileSystem() override { throw RuntimeError(ErrorNumber::ObjectNotSet); }
    clsRecordset& recordsets() override { return recordsets_; }
    MessageBox& messageBox() override { return messageBox_; }
    Clock& clock() override { return clock_; }
    Dispatcher& dispatcher() override { return dispatcher_; }
    const Locale& locale() override { return locale_; }

private:
    SystemClock clock_;
    ini::IniSettingsFactory settings_{clock_};
    clsRecordset recordsets_;
    qt::QtMessageBox messageBox_;
    qt::QtDispatcher dispatcher_;
    Locale locale_ = Locale::italian();
};

Services* chosen = nullptr;

}  // namespace

Services& standardServices() {
    if (chosen) return *chosen;
    static StandardServices services;
    return services;
}

void setStandardServices(Services* services) { chosen = services; }

}  // namespace velt
