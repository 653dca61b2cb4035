// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/opcua/directory.h"

#include <optional>

namespace velt::opcua {

/// Walks the branches of a server. User-interface thread; waits through the dispatcher.
class OpcUaBrowser final : public OPCBrowser {
public:
    explicit OpcUaBrowser(std::shared_ptr<Directory> directory)
        : directory_(std::move(directory)) {}

    void MoveToRoot() override;
    void MoveDown(const std::string& branch) override;
    void ShowBranches() override;
    /// At the root there are none: the server's own variables are no station's.
    void ShowLeafs() override;
    [[nodiscard]] std::int32_t Count() const override;
    [[nodiscard]] std::string Item(std::int32_t index) const override;
    [[nodiscard]] std::string GetItemID(const std::string& leaf) override;

private:
    std::shared_ptr<Directory> directory_;
    std::optional<Branch> position_;  ///< its name is the whole path; nothing: the root
    std::vector<std::string> names_;
    std::unordered_map<std::string, std::string> itemIDs_;  ///< of the leaves that are shown
};

}  // namespace velt::opcua
