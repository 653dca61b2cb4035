// SPDX-License-Identifier: MIT
#pragma once

#include <sys/types.h>

#include <cstdint>
#include <string>

namespace velt::opcua::bench {

/// A server with stations RTU01.. of whole numbers, in a process of its own. All of them change
/// every `interval` milliseconds; 0: never.
class ServerChild {
public:
    ServerChild(int stations, int variables, int interval, std::uint16_t port);
    ~ServerChild();
    ServerChild(const ServerChild&) = delete;
    ServerChild& operator=(const ServerChild&) = delete;

private:
    pid_t process_ = -1;
};

}  // namespace velt::opcua::bench
