// SPDX-License-Identifier: MIT
#include "platform/event.h"

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>

namespace velt {
namespace {

TEST(EventTest, HandlersMayChangeTheEventTheyAreCalledBy) {
    std::string calls;
    std::optional<Event<int>> event(std::in_place);
    event->subscribe([&](int value) {
        calls += "a" + std::to_string(value);
        if (value == 1) event->subscribe([&](int later) { calls += "c" + std::to_string(later); });
    });
    event->subscribe([&](int value) { calls += "b" + std::to_string(value); });
    event->raise(1);
    EXPECT_EQ(calls, "a1b1") << "who subscribes during a raise is called from the next one on";
    event->raise(2);
    EXPECT_EQ(calls, "a1b1a2b2c2");

    calls.clear();
    event.emplace();
    const auto owned = std::make_shared<std::string>("alive");
    event->subscribe([&, owned](int) {
        event.reset();
        calls += *owned;
    });
    event->raise(3);
    EXPECT_EQ(calls, "alive") << "a handler may destroy the event's owner";
}

}  // namespace
}  // namespace velt
