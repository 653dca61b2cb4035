// SPDX-License-Identifier: MIT
#pragma once

#include "demo/plantruntime.h"
#include "demo/serverpart.h"

#include <open62541/types.h>

#include <deque>
#include <memory>
#include <string>

namespace velt::demo {

/// The runtime as an object "Runtime" below "PC_Server", which a part before this one has added.
class RuntimeNodes final : public ServerPart {
public:
    /// `anonymousMayCall`: also clients without a user name may call the methods.
    RuntimeNodes(std::unique_ptr<PlantRuntime> runtime, bool anonymousMayCall);

    void addTo(UA_Server& server, std::uint16_t plantSpace) override;
    void tick() override { runtime_->advance(); }

private:
    struct Callbacks;
    struct Line {
        const PlantRuntime* runtime;
        std::size_t station;
    };

    void addStation(const UA_NodeId& folder, std::size_t station);
    void sendErrore(const std::string& message, const std::string& station);

    std::unique_ptr<PlantRuntime> runtime_;
    const bool anonymousMayCall_;
    UA_Server* server_ = nullptr;
    std::uint16_t space_ = 0;
    std::deque<Line> lines_;  // a deque: the server keeps their addresses
};

}  // namespace velt::demo
