// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

struct UA_Server;

namespace velt::demo {

/// Something that the demo's server offers. Both members are called on the server's thread.
class ServerPart {
public:
    virtual ~ServerPart() = default;
    /// Adds its nodes to the name space of the plant; RuntimeError when that fails.
    virtual void addTo(UA_Server& server, std::uint16_t space) = 0;
    /// Called many times a second.
    virtual void tick() {}
};

}  // namespace velt::demo
