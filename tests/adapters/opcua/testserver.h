// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/opcua/ua.h"
#include "adapters/opcua/values.h"
#include "demo/opcserver.h"
#include "demo/serverport.h"

#include <open62541/nodeids.h>
#include <open62541/server.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

namespace velt::opcua::test {

using demo::freePort;

/// How nodes are made in a server.
class Builder {
public:
    explicit Builder(UA_Server* server) : server_(server) {}

    [[nodiscard]] UA_Server* server() const { return server_; }
    /// Below the Objects folder when there is no parent.
    NodeId folder(const std::string& name, const NodeId& parent = objects());
    /// A variable with the value's own type and rank; its node ID is its name. `reference` is how
    /// it hangs on its parent.
    NodeId variable(const std::string& name, const NodeId& parent, const OwnedVariant& value,
                    bool writable = false, UA_UInt32 reference = UA_NS0ID_HASCOMPONENT);
    NodeId variable(const std::string& name, const NodeId& parent, const Variant& value,
                    bool writable = false) {
        return variable(name, parent, toUa(value, {}), writable);
    }
    void reference(const NodeId& from, const NodeId& to);
    void write(const NodeId& node, const Variant& value, UA_StatusCode status);
    [[nodiscard]] Variant read(const NodeId& node) const;
    void remove(const NodeId& node);

    [[nodiscard]] static NodeId objects();
    [[nodiscard]] static NodeId named(const std::string& name);

private:
    UA_Server* server_;
    unsigned folders_ = 0;
};

/// A real server on loopback, with a thread of its own.
class TestServer {
public:
    /// `populate` fills it before it starts.
    explicit TestServer(std::function<void(Builder&)> populate, std::uint16_t port = 0);

    [[nodiscard]] std::string endpoint() const { return server_->endpoint(); }
    /// Has the server's thread carry this out, and waits for it.
    void run(const std::function<void(Builder&)>& command);
    /// How many items clients monitor at present.
    [[nodiscard]] int monitored() const;

private:
    struct Part;
    Part* part_;  ///< the server's
    std::unique_ptr<demo::OpcServer> server_;
};

}  // namespace velt::opcua::test
