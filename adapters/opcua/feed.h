// SPDX-License-Identifier: MIT
#pragma once

#include "platform/opc.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <mutex>
#include <optional>
#include <unordered_map>
#include <vector>

namespace velt::opcua {

/// Where the values of a group's items wait for the user-interface thread: of each item the newest,
/// so that a slow reader gets fewer values but never old ones, and memory stays bounded by the
/// number of items. Any thread.
class Feed {
public:
    /// The number of an item, for life.
    using Key = std::int32_t;

    struct Update {
        Variant value;
        std::int32_t quality = 0;
        Date time;
    };

    /// `announce` is called when there is something to take, not again before it was taken.
    explicit Feed(std::function<void()> announce) : announce_(std::move(announce)) {}

    /// Keeps what arrives for `key` until claim(); a constant is sent only once.
    void expect(Key key);
    /// From now on the item's values go out under this handle.
    void claim(Key key, std::int32_t clientHandle);
    void forget(const std::vector<Key>& keys);
    void clear();

    /// A value has arrived. Ignored for keys that are not known (any more).
    void put(Key key, Update update);
    /// To be called when a bunch of values is through: announces what there is.
    void flush();
    /// What is new, the oldest first; of at most `most` items. Then flush() announces the rest.
    [[nodiscard]] DataChangeArgs take(std::size_t most);

private:
    struct Entry {
        std::optional<std::int32_t> clientHandle;
        std::optional<Update> news;
    };

    std::mutex mutex_;
    std::unordered_map<Key, Entry> entries_;
    std::vector<Key> fresh_;  ///< claimed ones with news, in the order of their arrival
    bool announced_ = false;
    std::function<void()> announce_;
};

}  // namespace velt::opcua
