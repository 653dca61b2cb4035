// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/opcua/exchange.h"
#include "adapters/opcua/ua.h"

#include <functional>
#include <stop_token>
#include <string>
#include <vector>

namespace velt::opcua {

/// A node below another one.
struct Child {
    NodeId id;
    std::string name;  ///< its browse name, without the namespace
    bool isVariable = false;
};

struct Children {
    UA_StatusCode status = UA_STATUSCODE_GOOD;
    std::vector<Child> nodes;
};

/// A node whose children are asked for: all in the hierarchy except properties, of a variable only
/// its components.
struct Parent {
    NodeId id;
    bool isVariable = false;
};

/// The objects and variables right below each of `parents`, in few round trips. No more than
/// `limit` children are taken in all; `limit` goes down by them. On the session's thread.
[[nodiscard]] std::vector<Children> browseChildren(UA_Client& client, const OperationLimits& limits,
                                                   const std::vector<Parent>& parents,
                                                   std::size_t& limit,
                                                   const std::stop_token& stop = {});

}  // namespace velt::opcua
