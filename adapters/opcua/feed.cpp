// SPDX-License-Identifier: MIT
#include "adapters/opcua/feed.h"

#include <algorithm>
#include <utility>

namespace velt::opcua {

void Feed::expect(Key key) {
    const std::lock_guard lock(mutex_);
    entries_.try_emplace(key);
}

void Feed::claim(Key key, std::int32_t clientHandle) {
    {
        const std::lock_guard lock(mutex_);
        Entry& entry = entries_[key];
        if (entry.news && !entry.clientHandle) fresh_.push_back(key);
        entry.clientHandle = clientHandle;
    }
    flush();
}

void Feed::forget(const std::vector<Key>& keys) {
    const std::lock_guard lock(mutex_);
    for (const Key key : keys) entries_.erase(key);
}

void Feed::clear() {
    const std::lock_guard lock(mutex_);
    entries_.clear();
    fresh_.clear();
}

void Feed::put(Key key, Update update) {
    const std::lock_guard lock(mutex_);
    const auto found = entries_.find(key);
    if (found == entries_.end()) return;
    Entry& entry = found->second;
    if (entry.clientHandle && !entry.news) fresh_.push_back(key);
    entry.news = std::move(update);
}

void Feed::flush() {
    {
        const std::lock_guard lock(mutex_);
        if (announced_ || fresh_.empty()) return;
        announced_ = true;
    }
    announce_();
}

DataChangeArgs Feed::take(std::size_t most) {
    const std::lock_guard lock(mutex_);
    announced_ = false;
    const std::size_t count = std::min(most, fresh_.size());
    DataChangeArgs args;
    args.ClientHandles.reserve(count);
    args.ItemValues.reserve(count);
    args.Qualities.reserve(count);
    args.TimeStamps.reserve(count);
    const auto end = fresh_.begin() + static_cast<std::ptrdiff_t>(count);
    for (auto key = fresh_.begin(); key != end; ++key) {
        const auto found = entries_.find(*key);
        if (found == entries_.end()) continue;
        Update& update = *found->second.news;
        args.ClientHandles.push_back(*found->second.clientHandle);
        args.ItemValues.push_back(std::move(update.value));
        args.Qualities.push_back(update.quality);
        args.TimeStamps.push_back(update.time);
        found->second.news.reset();
    }
    fresh_.erase(fresh_.begin(), end);
    return args;
}

}  // namespace velt::opcua
