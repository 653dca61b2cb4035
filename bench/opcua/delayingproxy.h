// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <chrono>
#include <cstdint>
#include <thread>

namespace velt::opcua::bench {

/// A long line: listens on loopback and passes on, in both directions, what comes in, later by
/// `delay`. One connection at a time.
class DelayingProxy {
public:
    DelayingProxy(std::uint16_t port, std::uint16_t target, std::chrono::milliseconds delay);
    ~DelayingProxy();
    DelayingProxy(const DelayingProxy&) = delete;
    DelayingProxy& operator=(const DelayingProxy&) = delete;

private:
    void serve();
    void pass(int a, int b) const;

    int listener_;
    std::uint16_t target_;
    std::chrono::milliseconds delay_;
    std::atomic<bool> stopped_ = false;
    std::thread thread_;
};

}  // namespace velt::opcua::bench
