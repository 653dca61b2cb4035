// SPDX-License-Identifier: MIT
#include "adapters/opcua/opcuabrowser.h"

#include <algorithm>

namespace velt::opcua {

void OpcUaBrowser::MoveToRoot() {
    position_.reset();
    names_.clear();
    itemIDs_.clear();
}

void OpcUaBrowser::MoveDown(const std::string& branch) {
    Branch next;
    if (position_) {
        const std::vector<Branch> branches = directory_->branches(position_->id);
        const auto found = std::ranges::find(branches, branch, &Branch::name);
        if (found == branches.end()) throw RuntimeError(ErrorNumber::InvalidCall);
        next = {position_->name + "." + branch, found->id};
    } else {
        next = directory_->root(branch);
    }
    MoveToRoot();
    position_ = std::move(next);
}

void OpcUaBrowser::ShowBranches() {
    const std::vector<Branch> branches =
        position_ ? directory_->branches(position_->id) : directory_->roots();
    names_.clear();
    itemIDs_.clear();
    names_.reserve(branches.size());
    for (const Branch& branch : branches) names_.push_back(branch.name);
}

void OpcUaBrowser::ShowLeafs() {
    std::vector<Leaf> leaves;
    if (position_) leaves = directory_->leaves(*position_);
    names_.clear();
    itemIDs_.clear();
    names_.reserve(leaves.size());
    for (Leaf& leaf : leaves) {
        names_.push_back(leaf.name);
        itemIDs_.emplace(std::move(leaf.name), std::move(leaf.itemID));
    }
}

std::int32_t OpcUaBrowser::Count() const { return static_cast<std::int32_t>(names_.size()); }

std::string OpcUaBrowser::Item(std::int32_t index) const {
    if (index < 1 || index > Count()) throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
    return names_[static_cast<std::size_t>(index - 1)];
}

std::string OpcUaBrowser::GetItemID(const std::string& leaf) {
    const auto found = itemIDs_.find(leaf);
    if (found == itemIDs_.end()) throw RuntimeError(ErrorNumber::InvalidCall);
    return found->second;
}

}  // namespace velt::opcua
