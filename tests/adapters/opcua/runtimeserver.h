// SPDX-License-Identifier: MIT
#pragma once

#include "demo/opcserver.h"
#include "demo/plantnodes.h"
#include "demo/plantruntime.h"
#include "demo/runtimenodes.h"

#include <atomic>
#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace velt::opcua::test {

/// A clock that stands until it is told to go on: a state then lasts until a test has seen it.
class HandClock {
public:
    using Instant = demo::PlantRuntime::Instant;
    void pass(std::chrono::milliseconds time) { *elapsed_ += time.count(); }
    [[nodiscard]] std::function<Instant()> function() const {
        return [elapsed = elapsed_] { return Instant(std::chrono::milliseconds(*elapsed)); };
    }

private:
    std::shared_ptr<std::atomic<std::int64_t>> elapsed_ =
        std::make_shared<std::atomic<std::int64_t>>(0);
};

/// A runtime whose calls take less than a second each.
inline demo::PlantRuntimeOptions quickRuntime(std::vector<std::string> stations) {
    demo::PlantRuntimeOptions options;
    options.stations = std::move(stations);
    options.troubled = "Guasta";
    options.dialing = std::chrono::milliseconds(700);
    options.hangingUp = std::chrono::milliseconds(700);
    options.downloading = std::chrono::milliseconds(700);
    return options;
}

struct RuntimeServerOptions {
    demo::PlantRuntimeOptions runtime;
    demo::OpcServerOptions server;
    bool anonymousMayCall = true;
    std::function<HandClock::Instant()> clock = [] { return std::chrono::steady_clock::now(); };
    std::unique_ptr<demo::ServerPart> more;  ///< added last
};

/// A server that offers a runtime and nothing else.
inline std::unique_ptr<demo::OpcServer> startRuntime(RuntimeServerOptions options) {
    using namespace demo;
    std::vector<std::unique_ptr<ServerPart>> parts;
    std::vector<PlantStation> branches = {{"PC_Server", "", {}}};
    parts.push_back(
        std::make_unique<PlantNodes>(std::move(branches), std::chrono::milliseconds(100)));
    auto runtime = std::make_unique<PlantRuntime>(
        std::move(options.runtime), std::make_unique<NoDownloader>(), std::move(options.clock));
    parts.push_back(std::make_unique<RuntimeNodes>(std::move(runtime), options.anonymousMayCall));
    if (options.more) parts.push_back(std::move(options.more));
    return std::make_unique<OpcServer>(std::move(options.server), std::move(parts));
}

}  // namespace velt::opcua::test
