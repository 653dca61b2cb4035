// SPDX-License-Identifier: MIT
#include "demo/installation.h"

#include "adapters/ini/inisettings.h"
#include "demo/alarmdatabase.h"
#include "demo/folderlock.h"
#include "demo/plantcatalog.h"
#include "demo/plantconfig.h"
#include "demo/plantserver.h"
#include "demo/serverport.h"
#include "demo/stationdatabase.h"
#include "demo/stationdownloader.h"
#include "platform/runtimeerror.h"

#include <algorithm>
#include <array>
#include <condition_variable>
#include <future>
#include <mutex>
#include <string_view>
#include <system_error>
#include <thread>
#include <utility>

namespace velt::demo {

namespace fs = std::filesystem;

namespace {

constexpr std::uint16_t DefaultPort = 4840;
constexpr const char* ConfigName = "VeltRTU.ini";
constexpr std::array<std::string_view, 2> FetchedLater = {"RTU03", "RTU08"};

}  // namespace

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
        const std::vector<PlantStation> stations = plantStations(options.seed);
        updateStations(stations);
        if (options.opcPort) startOpcServer(*options.opcPort);
        writeConfig(stations);
        thread = std::jthread([this](const std::stop_token& stop) { run(stop); });
    }

    /// On as many threads as there are stations: the machine orders them.
    void updateStations(const std::vector<PlantStation>& stations) {
        std::vector<std::future<void>> updates;
        for (const PlantStation& station : stations) {
            const fs::path file = StationDownloader::fileOf(options.folder, station.name);
            const bool fetchedLater = std::ranges::count(FetchedLater, station.name) > 0;
            if (fetchedLater && !fs::exists(file)) continue;
            updates.push_back(std::async(std::launch::async, [&station, file, now = clock.now(),
                                                              days = options.stationDays] {
                updateStationDatabase(file, station, now, days);
            }));
        }
        for (auto& update : updates) update.get();
    }

    void writeConfig(const std::vector<PlantStation>& stations) {
        // A host name alone means the usual port.
        std::string host = "127.0.0.1";
        if (server && server->port() != DefaultPort) host = server->endpoint();
        ini::IniSettingsFactory settings(clock, {.log = options.log});
        writePlantConfig(settings, options.folder / ConfigName, host, stations);
    }

    void startOpcServer(std::uint16_t port) {
        PlantServerOptions plant;
        plant.seed = options.seed;
        plant.server.port = port;
        plant.interval = options.interval;
        plant.server.log = options.log;
        plant.server.security = options.security;
        plant.downloadFolder = options.folder;
        plant.downloadDays = options.stationDays;
        if (port != 0 && !isPortFree(port)) {
            if (options.log)
                options.log("La porta " + std::to_string(port) +
                            " è già in uso: il server OPC ne usa un'altra");
            plant.server.port = 0;
        }
        server = startPlantServer(std::move(plant), clock);
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
fs::path Installation::configFile() const { return impl_->options.folder / ConfigName; }
std::string Installation::opcEndpoint() const {
    return impl_->server ? impl_->server->endpoint() : std::string();
}

}  // namespace velt::demo
