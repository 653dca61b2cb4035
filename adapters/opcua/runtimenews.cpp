// SPDX-License-Identifier: MIT
#include "adapters/opcua/runtimenews.h"

#include <utility>

namespace velt::opcua {

void RuntimeNewsQueue::stato(const std::string& station, std::int32_t code) {
    put({RuntimeNews::Kind::Stato, station, code, {}});
}

void RuntimeNewsQueue::errore(const std::string& message, const std::string& station) {
    put({RuntimeNews::Kind::Errore, station, 0, message});
}

void RuntimeNewsQueue::put(RuntimeNews news) {
    {
        const std::lock_guard lock(mutex_);
        if (news.kind == RuntimeNews::Kind::Stato) {
            // To the end: an error that was told before must not overtake the newer state.
            const auto [known, isNew] = states_.try_emplace(news.station);
            if (!isNew) waiting_.erase(known->second);
            waiting_.push_back(std::move(news));
            known->second = std::prev(waiting_.end());
        } else {
            if (errors_ == MaxErrors) return;
            ++errors_;
            waiting_.push_back(std::move(news));
        }
        if (std::exchange(announced_, true)) return;
    }
    announce_();
}

std::optional<RuntimeNews> RuntimeNewsQueue::take() {
    const std::lock_guard lock(mutex_);
    if (waiting_.empty()) {
        announced_ = false;
        return std::nullopt;
    }
    RuntimeNews news = std::move(waiting_.front());
    if (news.kind == RuntimeNews::Kind::Stato)
        states_.erase(news.station);
    else
        --errors_;
    waiting_.pop_front();
    return news;
}

}  // namespace velt::opcua
