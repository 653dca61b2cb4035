// SPDX-License-Identifier: MIT
#pragma once

#include <open62541/client.h>

#include <atomic>
#include <functional>
#include <memory>
#include <string>

namespace velt::opcua {

struct OpcUaOptions {
    /// The file with security, user and password (docs/opc.md); "": no security, anonymous.
    std::string configFile;
    /// Is told, on the user-interface thread, why a connection failed or ended.
    std::function<void(const std::string&)> log;
    /// Is told, there too, which part of a server's address space is not looked at.
    std::function<void(const std::string&)> notice;
};

/// How a session gets its UA_Client configured.
struct ClientSetup {
    /// Reads the files; RuntimeError when they cannot be used. For Session::open().
    std::function<void(UA_ClientConfig&)> configure;
    /// What was wrong with the server's certificate; good while nothing was.
    std::shared_ptr<std::atomic<UA_StatusCode>> verdict;
};

[[nodiscard]] ClientSetup clientSetup(const OpcUaOptions& options, const std::string& endpoint);

}  // namespace velt::opcua
