// SPDX-License-Identifier: MIT
#include "demo/plantserver.h"

#include "demo/plantcatalog.h"
#include "demo/plantnodes.h"
#include "demo/plantruntime.h"
#include "demo/runtimenodes.h"
#include "demo/stationdownloader.h"

#include <utility>

namespace velt::demo {

std::unique_ptr<OpcServer> startPlantServer(PlantServerOptions options, Clock& clock) {
    std::vector<PlantStation> stations =
        options.loadStations > 0
            ? loadStations(options.loadStations, options.loadVariables, options.seed)
            : plantStations(options.seed);

    PlantRuntimeOptions runtime;
    for (const PlantStation& station : stations) runtime.stations.push_back(station.name);
    std::unique_ptr<Downloader> downloader = std::make_unique<NoDownloader>();
    if (!options.downloadFolder.empty())
        downloader = std::make_unique<StationDownloader>(options.downloadFolder, stations,
                                                         options.downloadDays, clock);
    auto plantRuntime = std::make_unique<PlantRuntime>(
        std::move(runtime), std::move(downloader), [] { return std::chrono::steady_clock::now(); });

    stations.push_back({"PC_Server", "Server di telecontrollo", serverVariables(options.seed)});
    std::vector<std::unique_ptr<ServerPart>> parts;
    parts.push_back(std::make_unique<PlantNodes>(std::move(stations), options.interval));
    // Nobody but users of this machine can reach the server.
    parts.push_back(std::make_unique<RuntimeNodes>(std::move(plantRuntime), true));
    return std::make_unique<OpcServer>(std::move(options.server), std::move(parts));
}

}  // namespace velt::demo
