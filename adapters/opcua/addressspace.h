// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/opcua/exchange.h"
#include "adapters/opcua/ua.h"
#include "adapters/opcua/values.h"

#include <optional>
#include <stop_token>
#include <string>
#include <vector>

/// The server's address space as an operator sees it. All functions on the session's thread.
namespace velt::opcua {

/// Bounds of what is looked at.
struct Bounds {
    int levels = 32;              ///< below one branch
    std::size_t nodes = 200'000;  ///< of all branches that are asked for together
};

/// A place in the address space and its name there.
struct Branch {
    std::string name;
    NodeId id;
};

struct Leaf {
    std::string name;  ///< the path below the branch, with "."
    std::string itemID;
    NodeId id;
    std::optional<ValueType> type;  ///< nothing: not read yet
};

struct Leaves {
    UA_StatusCode status = UA_STATUSCODE_GOOD;  ///< of the branch itself
    std::vector<Leaf> leaves;
    std::string leftOut;  ///< what lies beyond the bounds, for an operator; "": nothing
};

/// The objects right below a node; below the Objects folder only those that are not the standard's.
[[nodiscard]] std::vector<Branch> readBranches(UA_Client& client, const OperationLimits& limits,
                                               const NodeId& parent, const std::stop_token& stop);

/// All variables below each of `branches` (their names lead the item IDs), level by level, each
/// once per branch, whatever circles there are. A second variable of the same path goes by the
/// text of its node ID. With `types`, their types too.
[[nodiscard]] std::vector<Leaves> readLeaves(UA_Client& client, const OperationLimits& limits,
                                             const std::vector<Branch>& branches, bool types,
                                             const std::stop_token& stop,
                                             const Bounds& bounds = {});

/// The types of variables, from their attributes or else from their values.
[[nodiscard]] std::vector<ValueType> readTypes(UA_Client& client, const OperationLimits& limits,
                                               const std::vector<NodeId>& variables,
                                               const std::stop_token& stop);

}  // namespace velt::opcua
