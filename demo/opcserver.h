// SPDX-License-Identifier: MIT
#pragma once

#include "demo/serverpart.h"
#include "demo/serversecurity.h"

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace velt::demo {

struct OpcServerOptions {
    std::uint16_t port = 0;  ///< 0: one that is free
    /// How long connected clients are told beforehand that the server ends.
    std::chrono::milliseconds shutdownNotice{1500};
    std::optional<ServerSecurity> security;  ///< without it everybody on this machine may connect
    /// Told, on another thread, the library's errors.
    std::function<void(const std::string&)> log;
};

/// An OPC UA server of the local machine on a thread of its own, which ends when this object does,
/// clients being told so before. It listens on the loopback addresses only.
class OpcServer {
public:
    /// RuntimeError when the port is taken or the server does not start; `parts` offer its nodes.
    OpcServer(OpcServerOptions options, std::vector<std::unique_ptr<ServerPart>> parts);
    ~OpcServer();

    /// "opc.tcp://127.0.0.1:PORT"
    [[nodiscard]] std::string endpoint() const;
    [[nodiscard]] std::uint16_t port() const;

private:
    struct Impl;
    std::unique_ptr<Impl> impl_;
};

}  // namespace velt::demo
