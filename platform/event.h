// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace velt {

/// A list of handlers that are called in the order of their subscription, on the raiser's thread.
/// A handler may subscribe others (they are called from the next raise on) and may destroy the
/// event's owner: the handlers of the running raise stay alive until it ends.
template <typename... Args>
class Event {
public:
    using Handler = std::function<void(Args...)>;

    Event() = default;
    Event(const Event&) = delete;
    Event& operator=(const Event&) = delete;

    void subscribe(Handler handler) {
        auto next = std::make_shared<std::vector<Handler>>(*handlers_);
        next->push_back(std::move(handler));
        handlers_ = std::move(next);
    }

    void raise(Args... args) const {
        const std::shared_ptr<const std::vector<Handler>> current = handlers_;
        for (const Handler& handler : *current) handler(args...);
    }

private:
    std::shared_ptr<const std::vector<Handler>> handlers_ =
        std::make_shared<std::vector<Handler>>();
};

}  // namespace velt
