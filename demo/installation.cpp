// SPDX-License-Identifier: MIT
#include "demo/installation.h"

#include "demo/alarmdatabase.h"
#include "demo/folderlock.h"
#include "demo/plantserver.h"
#include "demo/serverport.h"
#include "platform/runtimeerror.h"

#include <condition_variable>
#include <mutex>
#include <system_error>
#include <thread>
#include <utility>

namespace velt::demo {

namespace fs = std::filesystem;

struct Installation::Impl {
    Impl(InstallationOptions given, Clock& systemClock)
        : options(std::move(given)),
          clock(systemClock),
          lock(options.folder),
          generator(options.seed) {
        const fs::path file = options.folder / "Allarmi.mdb";
        if (!fs::exists(file)) {
            const Date now = clock.now();
            const double seconds = options.historyDays * 86400.0;
            AlarmDatabase::create(
                file, generator.history(now.addSeconds(-seconds), now, options.historyAlarms));
        }
        database = std::make_unique<AlarmDatabase>(file);
        if (options.opcPort) startOpcServer(*options.opcPort);
        thread = std::jthread([this](const std::stop_token& stop) { run(stop); });
    }

    void startOpcServer(std::uint16_t port) {
        PlantServerOptions plant;
        plant.seed = options.seed;
        plant.server.port = port;
        plant.server.log = options.log;
        if (port != 0 && !isPortFree(port)) {
            if (options.log)
                options.log("La porta " + std::to_string(port) +
                            " è già in uso: il server OPC ne usa un'altra");
            plant.server.port = 0;
        }
        server = startPlantServer(std::move(plant));
    }

    void run(const std::stop_token& stop) {
        std::unique_lock guard(mutex);
        while (!wake.wait_for(guard, stop, options.alarmInterval,
                              [&stop] { return stop.stop_requested(); })) {
            try {
                database->append(generator.at(clock.now()));
            } catch (const RuntimeError& error) {
                // A plant that cannot log goes on working: a full disk may become free again.
                if (options.log) options.log(error.Description());
            }
        }
    }

    InstallationOptions options;
    Clock& clock;
    FolderLock lock;
    AlarmGenerator generator;
    std::unique_ptr<AlarmDatabase> database;
    std::unique_ptr<OpcServer> server;
    std::mutex mutex;
    std::condition_variable_any wake;
    std::jthread thread;  // last: it uses all the others
};

Installation::Installation(InstallationOptions options, Clock& clock)
    : impl_(std::make_unique<Impl>(std::move(options), clock)) {}

Installation::~Installation() = default;

fs::path Installation::alarmFile() const { return impl_->options.folder / "Allarmi.mdb"; }
fs::path Installation::settingsFile() const { return impl_->options.folder / "pannello.ini"; }
std::string Installation::opcEndpoint() const {
    return impl_->server ? impl_->server->endpoint() : std::string();
}

}  // namespace velt::demo
