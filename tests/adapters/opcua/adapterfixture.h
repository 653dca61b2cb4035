// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/opcua/session.h"
#include "platform/queueddispatcher.h"
#include "platform/runtimeerror.h"
#include "tests/adapters/opcua/testserver.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <string>
#include <vector>

namespace velt::opcua::test {

using namespace std::chrono_literals;
using namespace testing;

/// A test's thread that takes the events of an adapter.
class AdapterFixture : public testing::Test {
protected:
    ~AdapterFixture() override { EXPECT_TRUE(Session::waitForAll(10s)) << "threads are left"; }

    /// Takes events until the condition holds.
    template <typename Condition>
    [[nodiscard]] bool until(Condition condition, std::chrono::milliseconds time = 15s) {
        // A look now and then, for conditions that change without an event.
        const auto end = std::chrono::steady_clock::now() + time;
        while (!condition()) {
            if (std::chrono::steady_clock::now() > end) return false;
            (void)dispatcher_.runUntil(condition, std::chrono::steady_clock::now() + 20ms);
        }
        return true;
    }

    QueuedDispatcher dispatcher_;
    std::vector<std::string> logged_;
    std::function<void(const std::string&)> log_ = [this](const std::string& text) {
        logged_.push_back(text);
    };
};

}  // namespace velt::opcua::test
