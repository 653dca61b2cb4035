// SPDX-License-Identifier: MIT
#include "adapters/standard/standardservices.h"

#include "adapters/access/accessdatabase.h"
#include "adapters/access/filesystem.h"
#include "adapters/ini/inisettings.h"
#include "adapters/opcua/opcuaserverfactory.h"
#include "adapters/opcua/runtimeclientfactory.h"
#include "adapters/qt/log.h"
#include "adapters/qt/qtdispatcher.h"
#include "adapters/qt/qtmessagebox.h"
#include "adapters/qt/text.h"

#include <cstdlib>
#include <optional>
#include <utility>

namespace velt {
namespace {

void log(const std::string& text) { qCWarning(qt::logControls).noquote() << qt::toQt(text); }

void reportUnreadable(const std::string& path, std::uint64_t rows) {
    log(path + ": " + std::to_string(rows) + " righe illeggibili, non mostrate");
}

std::optional<std::string> chosenOpcConfiguration;

opcua::OpcUaOptions opcOptions() {
    const char* const variable = std::getenv("VELT_OPC_CONFIG");
    return {chosenOpcConfiguration.value_or(variable ? variable : ""), log, log};
}

class StandardServices final : public Services {
public:
    SettingsFactory& settings() override { return settings_; }
    clsDatabase& database() override { return database_; }
    clsFileSystem& fileSystem() override { return fileSystem_; }
    clsRecordset& recordsets() override { return recordsets_; }
    MessageBox& messageBox() override { return messageBox_; }
    Clock& clock() override { return clock_; }
    Dispatcher& dispatcher() override { return dispatcher_; }
    const Locale& locale() override { return locale_; }
    OPCServerFactory& opcServers() override {
        opcServers_.options(opcOptions());  // the host may have chosen in the meantime
        return opcServers_;
    }
    RuntimeClientFactory& runtimeClients() override {
        runtimeClients_.options(opcOptions());
        return runtimeClients_;
    }

private:
    SystemClock clock_;
    Locale locale_ = Locale::italian();
    qt::QtDispatcher dispatcher_;
    qt::QtMessageBox messageBox_;
    ini::IniSettingsFactory settings_{clock_, {.log = log, .dispatcher = &dispatcher_}};
    access::AccessDatabase database_{dispatcher_, reportUnreadable};
    access::LocalFileSystem fileSystem_{dispatcher_};
    clsRecordset recordsets_;
    opcua::OpcUaServerFactory opcServers_{dispatcher_};
    opcua::OpcUaRuntimeClientFactory runtimeClients_{dispatcher_};
};

Services* chosen = nullptr;

}  // namespace

Services& standardServices() {
    if (chosen) return *chosen;
    static StandardServices services;
    return services;
}

void setStandardServices(Services* services) { chosen = services; }

void setOpcConfiguration(std::string path) { chosenOpcConfiguration = std::move(path); }

}  // namespace velt
