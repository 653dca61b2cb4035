// SPDX-License-Identifier: MIT
#include "demo/plantserver.h"

#include "demo/plantcatalog.h"
#include "demo/plantnodes.h"

#include <utility>

namespace velt::demo {

std::unique_ptr<OpcServer> startPlantServer(PlantServerOptions options) {
    std::vector<PlantStation> stations =
        options.loadStations > 0
            ? loadStations(options.loadStations, options.loadVariables, options.seed)
            : plantStations(options.seed);
    stations.push_back({"PC_Server", "Server di telecontrollo", serverVariables(options.seed)});
    std::vector<std::unique_ptr<ServerPart>> parts;
    parts.push_back(std::make_unique<PlantNodes>(std::move(stations), options.interval));
    return std::make_unique<OpcServer>(std::move(options.server), std::move(parts));
}

}  // namespace velt::demo
