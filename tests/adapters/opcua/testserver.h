// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/opcua/ua.h"
#include "adapters/opcua/values.h"

#include <open62541/server.h>

#include <atomic>
#include <cstdint>
#include <functional>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace velt::opcua::test {

/// A port of the loopback interface that nobody listens on.
[[nodiscard]] std::uint16_t freePort();

/// How nodes are made in a server.
class Builder {
public:
    explicit Builder(UA_Server* server) : server_(server) {}

    [[nodiscard]] UA_Server* server() const { return server_; }
    /// Below the Objects folder when there is no parent.
    NodeId folder(const std::string& name, const NodeId& parent = objects());
    /// A variable with the value's own type and rank; its node ID is its name.
    NodeId variable(const std::string& name, const NodeId& parent, const OwnedVariant& value,
                    bool writable = false);
    NodeId variable(const std::string& name, const NodeId& parent, const Variant& value,
                    bool writable = false);
    void property(const std::string& name, const NodeId& parent);
    void reference(const NodeId& from, const NodeId& to);
    void write(const NodeId& node, const Variant& value);
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
    using Configure = std::function<void(UA_ServerConfig&, std::uint16_t port)>;

    /// `populate` fills it before it starts; `configure` replaces the plain configuration.
    explicit TestServer(const std::function<void(Builder&)>& populate,
                        const Configure& configure = {}, std::uint16_t port = freePort());
    ~TestServer() { stop(); }
    TestServer(const TestServer&) = delete;
    TestServer& operator=(const TestServer&) = delete;

    [[nodiscard]] std::uint16_t port() const { return port_; }
    [[nodiscard]] std::string endpoint() const;
    /// Has the server's thread carry this out, and waits for it.
    void run(const std::function<void(Builder&)>& command);
    /// Closes all connections without a word.
    void stop();
    /// How many items clients monitor at present.
    [[nodiscard]] int monitored() const { return monitored_; }

    static void plain(UA_ServerConfig& config, std::uint16_t port);

private:
    void serve();

    std::uint16_t port_;
    UA_Server* server_ = nullptr;
    std::atomic<int> monitored_ = 0;
    std::atomic<bool> stopped_ = false;
    std::mutex mutex_;
    std::vector<std::function<void()>> commands_;
    std::thread thread_;
};

}  // namespace velt::opcua::test
