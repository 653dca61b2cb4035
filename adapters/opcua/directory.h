// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/opcua/addressspace.h"
#include "adapters/opcua/connection.h"

#include <functional>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

namespace velt::opcua {

/// What is known of a connected server's address space: which node an item ID means, and the
/// leaves of branches that were fetched ahead. User-interface thread.
class Directory {
public:
    /// `notice` is told of what is left out because the server has too much of it.
    Directory(std::shared_ptr<Connection> connection,
              std::function<void(const std::string&)> notice)
        : connection_(std::move(connection)), notice_(std::move(notice)) {}

    /// Asks the server anew.
    [[nodiscard]] const std::vector<Branch>& roots();
    /// The root's branch of that name, as last seen; RuntimeError 5 when there is none.
    [[nodiscard]] const Branch& root(const std::string& name);
    [[nodiscard]] std::vector<Branch> branches(const NodeId& parent);

    /// Fetches the leaves of these branches of the root, for the next leaves() of each.
    void fetch(const std::vector<std::string>& names);
    /// All variables below a branch; RuntimeError when the server cannot say.
    [[nodiscard]] std::vector<Leaf> leaves(const Branch& branch);

    struct Entry {
        NodeId id;
        std::optional<ValueType> type;
    };
    /// The node of an item ID: one that was listed before, the text of a node ID, or a leaf that is
    /// looked for; null when there is none.
    [[nodiscard]] Entry* find(const std::string& itemID);
    /// As find(), from what is known already.
    [[nodiscard]] Entry* known(const std::string& itemID);

private:
    std::vector<Leaf> remember(Leaves leaves);

    std::shared_ptr<Connection> connection_;
    std::function<void(const std::string&)> notice_;
    std::vector<Branch> roots_;
    bool rootsRead_ = false;
    std::unordered_map<std::string, Leaves> fetched_;
    std::unordered_map<std::string, Entry> entries_;
};

}  // namespace velt::opcua
