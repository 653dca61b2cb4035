// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtimeerror.h"

#include <memory>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace velt {

/// Members in the order of their adding, found by their position, from 1, or by their key, which is
/// case-sensitive. References to a member hold until it is removed.
template <typename T>
class Collection {
public:
    [[nodiscard]] int Count() const { return static_cast<int>(members_.size()); }

    /// An empty key is no key; a key in use raises RuntimeError 457.
    void Add(T value, const std::string& key = {}) {
        auto member = std::make_unique<Member>(Member{key, std::move(value)});
        if (!key.empty() && !byKey_.emplace(key, member.get()).second)
            throw RuntimeError(ErrorNumber::KeyInUse);
        members_.push_back(std::move(member));
    }

    /// RuntimeError 9 when there is no such position.
    [[nodiscard]] T& Item(int position) { return members_[index(position)]->value; }
    /// RuntimeError 5 when there is no such key.
    [[nodiscard]] T& Item(const std::string& key) {
        const auto found = byKey_.find(key);
        if (found == byKey_.end()) throw RuntimeError(ErrorNumber::InvalidCall);
        return found->second->value;
    }

    /// The members behind it move up. RuntimeError 9 when there is no such position.
    void Remove(int position) {
        const auto removed = members_.begin() + static_cast<std::ptrdiff_t>(index(position));
        byKey_.erase((*removed)->key);
        members_.erase(removed);
    }

    void Clear() {
        byKey_.clear();
        members_.clear();
    }

private:
    struct Member {
        std::string key;
        T value;
    };

    [[nodiscard]] std::size_t index(int position) const {
        if (position < 1 || position > Count())
            throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
        return static_cast<std::size_t>(position) - 1;
    }

    std::vector<std::unique_ptr<Member>> members_;
    std::unordered_map<std::string, Member*> byKey_;
};

}  // namespace velt
