// SPDX-License-Identifier: MIT
#include "platform/event.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace velt {
namespace {

TEST(EventTest, HandlersMayChangeOrDestroyTheEventTheyAreCalledBy) {
    std::string calls;
    auto event = std::make_unique<Event<int>>();
    event->subscribe([&](int value) {
        calls += "a" + std::to_string(value);
        if (value == 1) event->subscribe([&](int later) { calls += "c" + std::to_string(later); });
    });
    event->subscribe([&, owned = std::make_shared<std::string>("alive")](int value) {
        if (value == 3) event.reset();
        calls += *owned + " ";
    });
    for (const int value : {1, 2, 3}) event->raise(value);
    EXPECT_EQ(calls, "a1alive a2alive c2a3alive c3")
        << "who subscribes during a raise is called from the next one on";
}

}  // namespace
}  // namespace velt
