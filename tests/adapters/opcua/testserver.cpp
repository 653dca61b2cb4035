// SPDX-License-Identifier: MIT
#include "tests/adapters/opcua/testserver.h"

#include <open62541/nodeids.h>

#include <atomic>
#include <future>
#include <mutex>
#include <stdexcept>
#include <utility>
#include <vector>

namespace velt::opcua::test {
namespace {

void require(UA_StatusCode status, const char* what) {
    if (status != UA_STATUSCODE_GOOD)
        throw std::runtime_error(std::string(what) + ": " + UA_StatusCode_name(status));
}

UA_QualifiedName nameOf(const std::string& name) { return {1, borrowed(name)}; }

}  // namespace

NodeId Builder::objects() { return NodeId(UA_NODEID_NUMERIC(0, UA_NS0ID_OBJECTSFOLDER)); }

NodeId Builder::named(const std::string& name) {
    UA_NodeId id{};
    id.namespaceIndex = 1;
    id.identifierType = UA_NODEIDTYPE_STRING;
    id.identifier.string = borrowed(name);
    return NodeId(NodeId::copyOf(id));
}

NodeId Builder::folder(const std::string& name, const NodeId& parent) {
    const NodeId id(UA_NODEID_NUMERIC(1, 100'000 + ++folders_));
    require(UA_Server_addObjectNode(server_, *id, *parent, UA_NODEID_NUMERIC(0, UA_NS0ID_ORGANIZES),
                                    nameOf(name), UA_NODEID_NUMERIC(0, UA_NS0ID_FOLDERTYPE),
                                    UA_ObjectAttributes_default, nullptr, nullptr),
            "folder");
    return id;
}

NodeId Builder::variable(const std::string& name, const NodeId& parent, const OwnedVariant& value,
                         bool writable, UA_UInt32 reference) {
    UA_VariableAttributes attributes = UA_VariableAttributes_default;
    attributes.value = *value;
    std::vector<UA_UInt32> dimensions;
    if (value->type) {
        attributes.dataType = value->type->typeId;
        attributes.valueRank = typeOf(*value).rank;
        for (int i = 0; i < attributes.valueRank; ++i) dimensions.push_back(0);
        attributes.arrayDimensions = dimensions.data();
        attributes.arrayDimensionsSize = dimensions.size();
    }
    attributes.accessLevel =
        static_cast<UA_Byte>(UA_ACCESSLEVELMASK_READ | (writable ? UA_ACCESSLEVELMASK_WRITE : 0));
    NodeId id = named(name);
    require(UA_Server_addVariableNode(
                server_, *id, *parent, UA_NODEID_NUMERIC(0, reference), nameOf(name),
                UA_NODEID_NUMERIC(0, UA_NS0ID_BASEDATAVARIABLETYPE), attributes, nullptr, nullptr),
            name.c_str());
    return id;
}

void Builder::reference(const NodeId& from, const NodeId& to) {
    const UA_ExpandedNodeId target{*to, UA_STRING_NULL, 0};
    require(UA_Server_addReference(server_, *from, UA_NODEID_NUMERIC(0, UA_NS0ID_ORGANIZES), target,
                                   true),
            "reference");
}

void Builder::write(const NodeId& node, const Variant& value, UA_StatusCode status) {
    const OwnedVariant converted = toUa(value, {});
    UA_DataValue data{};
    data.value = *converted;
    data.hasValue = true;
    data.status = status;
    data.hasStatus = true;
    require(UA_Server_writeDataValue(server_, *node, data), "write");
}

Variant Builder::read(const NodeId& node) const {
    OwnedVariant value;
    require(UA_Server_readValue(server_, *node, value.get()), "read");
    return toVariant(*value);
}

void Builder::remove(const NodeId& node) {
    require(UA_Server_deleteNode(server_, *node, true), "remove");
}

/// What the server offers; on its thread.
struct TestServer::Part final : demo::ServerPart {
    explicit Part(std::function<void(Builder&)> fill) : populate(std::move(fill)) {}
    void addTo(UA_Server& added, std::uint16_t) override {
        server = &added;
        UA_ServerConfig& config = *UA_Server_getConfig(server);
        config.samplingIntervalLimits.min = config.publishingIntervalLimits.min = 5;
        config.context = this;
        config.monitoredItemRegisterCallback = [](UA_Server* of, const UA_NodeId*, void*,
                                                  const UA_NodeId*, void*, UA_UInt32,
                                                  UA_Boolean gone) {
            static_cast<Part*>(UA_Server_getConfig(of)->context)->monitored += gone ? -1 : 1;
        };
        Builder builder(server);
        populate(builder);
    }
    void tick() override {
        const std::lock_guard lock(mutex);
        for (const auto& command : std::exchange(commands, {})) command();
    }

    std::function<void(Builder&)> populate;
    UA_Server* server = nullptr;
    std::atomic<int> monitored = 0;
    std::mutex mutex;
    std::vector<std::function<void()>> commands;
};

TestServer::TestServer(std::function<void(Builder&)> populate, std::uint16_t port) {
    auto part = std::make_unique<Part>(std::move(populate));
    part_ = part.get();
    std::vector<std::unique_ptr<demo::ServerPart>> parts;
    parts.push_back(std::move(part));
    demo::OpcServerOptions options;
    options.port = port;
    options.shutdownNotice = std::chrono::milliseconds(0);
    server_ = std::make_unique<demo::OpcServer>(std::move(options), std::move(parts));
}

int TestServer::monitored() const { return part_->monitored; }

void TestServer::run(const std::function<void(Builder&)>& command) {
    std::packaged_task<void()> task([&] {
        Builder builder(part_->server);
        command(builder);
    });
    {
        const std::lock_guard lock(part_->mutex);
        part_->commands.push_back([&task] { task(); });
    }
    task.get_future().get();
}

}  // namespace velt::opcua::test
