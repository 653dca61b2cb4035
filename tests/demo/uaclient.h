// SPDX-License-Identifier: MIT
// A plain client for the tests of the demo's server.
#pragma once

#include "demo/uavalue.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <open62541/client.h>
#include <open62541/client_config_default.h>
#include <open62541/client_highlevel.h>
#include <open62541/client_subscriptions.h>

#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace velt::demo {

struct UaNode {
    UA_NodeClass nodeClass;
    std::uint16_t space;
    std::string name;
    std::string id;
};

inline UA_Logger* silentLogger() {
    static UA_Logger silent = {[](void*, UA_LogLevel, UA_LogCategory, const char*, va_list) {},
                               nullptr, nullptr};
    return &silent;
}

class UaClient {
public:
    UaClient() {
        UA_ClientConfig fresh{};
        fresh.logging = silentLogger();
        UA_ClientConfig_setDefault(&fresh);
        client_ = UA_Client_newWithConfig(&fresh);
    }
    ~UaClient() { UA_Client_delete(client_); }
    UaClient(const UaClient&) = delete;
    UaClient& operator=(const UaClient&) = delete;

    UA_ClientConfig& config() { return *UA_Client_getConfig(client_); }
    UA_Client* get() { return client_; }
    UA_StatusCode connect(const std::string& url) {
        return UA_Client_connect(client_, url.c_str());
    }

    std::vector<UaNode> browse(const UA_NodeId& start) {
        UA_BrowseDescription description;
        UA_BrowseDescription_init(&description);
        description.nodeId = start;
        description.referenceTypeId = ns0(UA_NS0ID_HIERARCHICALREFERENCES);
        description.includeSubtypes = true;
        description.browseDirection = UA_BROWSEDIRECTION_FORWARD;
        description.resultMask = UA_BROWSERESULTMASK_ALL;
        UA_BrowseRequest request;
        UA_BrowseRequest_init(&request);
        request.nodesToBrowse = &description;
        request.nodesToBrowseSize = 1;
        UA_BrowseResponse response = UA_Client_Service_browse(client_, request);
        std::vector<UaNode> nodes;
        for (std::size_t i = 0; i < response.resultsSize; ++i)
            for (std::size_t j = 0; j < response.results[i].referencesSize; ++j) {
                const UA_ReferenceDescription& r = response.results[i].references[j];
                if (r.nodeId.nodeId.identifierType != UA_NODEIDTYPE_STRING) continue;
                nodes.push_back({r.nodeClass, r.nodeId.nodeId.namespaceIndex,
                                 std::string(opcua::view(r.browseName.name)),
                                 std::string(opcua::view(r.nodeId.nodeId.identifier.string))});
            }
        UA_BrowseResponse_clear(&response);
        return nodes;
    }

    /// All variables below a node.
    std::vector<UaNode> variablesBelow(const UA_NodeId& start) {
        std::vector<UaNode> all;
        for (const UaNode& node : browse(start)) {
            if (node.nodeClass == UA_NODECLASS_VARIABLE) {
                all.push_back(node);
                continue;
            }
            const auto below = variablesBelow(uaId(node.space, node.id));
            all.insert(all.end(), below.begin(), below.end());
        }
        return all;
    }

    /// Turns the client until `done` holds; false after ten seconds.
    bool until(const std::function<bool()>& done) {
        const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(10);
        while (!done()) {
            if (std::chrono::steady_clock::now() > end) return false;
            UA_Client_run_iterate(client_, 10);
        }
        return true;
    }

private:
    UA_Client* client_;
};

}  // namespace velt::demo
