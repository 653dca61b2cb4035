// SPDX-License-Identifier: MIT
#pragma once

#include <sys/types.h>

#include <cstddef>
#include <cstdint>
#include <string>

namespace velt::opcua::test {

/// A server in a process of its own, which can be frozen and killed. It has one branch "RTU01" of
/// numbers that change every few milliseconds, and a runtime with the stations A and B whose
/// downloads take a minute. To be made while this process has no other threads.
class ServerProcess {
public:
    static constexpr std::size_t Variables = 200;

    ServerProcess();
    ~ServerProcess();
    ServerProcess(const ServerProcess&) = delete;
    ServerProcess& operator=(const ServerProcess&) = delete;

    [[nodiscard]] std::string endpoint() const;
    void signal(int number) const;

private:
    std::uint16_t port_;
    pid_t process_ = -1;
};

}  // namespace velt::opcua::test
