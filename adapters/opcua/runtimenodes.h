// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/opcua/exchange.h"
#include "adapters/opcua/ua.h"

#include <array>
#include <string>
#include <vector>

namespace velt::opcua {

/// The methods of a runtime object.
enum class RuntimeMethod { ConnettiRTU, DisconnettiRTU, DownloadRTU, DownloadTutte };

/// A runtime object and what belongs to it, as docs/runtime-model.md describes it.
struct RuntimeNodes {
    struct Station {
        std::string name;
        NodeId stato;
    };

    UA_UInt16 space = 0;  ///< of the model's names
    NodeId object;
    std::array<NodeId, 4> methods;  ///< by RuntimeMethod; null where the server has none
    std::vector<Station> stations;

    std::string versione;
    std::string nomeProgetto;
    std::vector<std::string> elencoRTU;
};

/// The event type of errors, in the model's name space.
inline constexpr UA_UInt32 ErroreEventType = 1003;

/// Finds the runtime of a server by its names and reads what it offers. RuntimeError when there is
/// none. On the session's thread.
[[nodiscard]] RuntimeNodes findRuntime(UA_Client& client, const OperationLimits& limits);

}  // namespace velt::opcua
