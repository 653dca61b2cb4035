// SPDX-License-Identifier: MIT
#pragma once

#include "demo/plantvariable.h"
#include "demo/serverpart.h"

#include <chrono>
#include <deque>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace velt::demo {

/// The stations and their variables as objects and variables below Objects; folders are objects
/// too. Values are made when they are asked for: a variable that nobody watches costs nothing.
class PlantNodes final : public ServerPart {
public:
    /// `interval` is how long a value stays the same.
    PlantNodes(std::vector<PlantStation> stations, std::chrono::milliseconds interval);

    void addTo(UA_Server& server, std::uint16_t space) override;

private:
    struct Callbacks;
    struct Node {
        const PlantVariable* variable;
        PlantNodes* owner;
        std::optional<PlantValue> held;  ///< what was written to it
    };

    void addObject(std::string_view parent, const std::string& id, std::string_view name,
                   std::string_view description);
    void addFolders(const std::string& station, std::string_view folder);
    void addVariable(const std::string& station, const PlantVariable& variable);
    /// Civil time in milliseconds of Date, down to the whole interval.
    [[nodiscard]] std::int64_t now() const;

    const std::vector<PlantStation> stations_;
    const std::int64_t interval_;
    std::deque<Node> nodes_;  // a deque: the server keeps their addresses
    std::set<std::string> folders_;
    UA_Server* server_ = nullptr;
    std::uint16_t space_ = 0;
    bool serving_ = false;
};

}  // namespace velt::demo
