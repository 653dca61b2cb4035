// SPDX-License-Identifier: MIT
#include "tests/adapters/opcua/testserver.h"

#include <open62541/nodeids.h>
#include <open62541/server_config_default.h>

#include <arpa/inet.h>
#include <sys/socket.h>
#include <unistd.h>

#include <future>
#include <stdexcept>

namespace velt::opcua::test {
namespace {

UA_Logger silent{nullptr, nullptr, nullptr};

void require(UA_StatusCode status, const char* what) {
    if (status != UA_STATUSCODE_GOOD)
        throw std::runtime_error(std::string(what) + ": " + UA_StatusCode_name(status));
}

UA_QualifiedName nameOf(const std::string& name) { return {1, borrowed(name)}; }

}  // namespace

std::uint16_t freePort() {
    const int probe = socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    auto* const generic = reinterpret_cast<sockaddr*>(&address);
    const bool found = bind(probe, generic, size) == 0 && getsockname(probe, generic, &size) == 0;
    close(probe);
    if (!found) throw std::runtime_error("no free port");
    return ntohs(address.sin_port);
}

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
                         bool writable) {
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
                server_, *id, *parent, UA_NODEID_NUMERIC(0, UA_NS0ID_HASCOMPONENT), nameOf(name),
                UA_NODEID_NUMERIC(0, UA_NS0ID_BASEDATAVARIABLETYPE), attributes, nullptr, nullptr),
            name.c_str());
    return id;
}

NodeId Builder::variable(const std::string& name, const NodeId& parent, const Variant& value,
                         bool writable) {
    return variable(name, parent, toUa(value, {}), writable);
}

void Builder::property(const std::string& name, const NodeId& parent) {
    require(UA_Server_addVariableNode(server_, *named(name), *parent,
                                      UA_NODEID_NUMERIC(0, UA_NS0ID_HASPROPERTY), nameOf(name),
                                      UA_NODEID_NUMERIC(0, UA_NS0ID_PROPERTYTYPE),
                                      UA_VariableAttributes_default, nullptr, nullptr),
            "property");
}

void Builder::reference(const NodeId& from, const NodeId& to) {
    const UA_ExpandedNodeId target{*to, UA_STRING_NULL, 0};
    require(UA_Server_addReference(server_, *from, UA_NODEID_NUMERIC(0, UA_NS0ID_ORGANIZES), target,
                                   true),
            "reference");
}

void Builder::write(const NodeId& node, const Variant& value) {
    require(UA_Server_writeValue(server_, *node, *toUa(value, {})), "write");
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

void TestServer::plain(UA_ServerConfig& config, std::uint16_t port) {
    require(UA_ServerConfig_setMinimal(&config, port, nullptr), "configuration");
}

TestServer::TestServer(const std::function<void(Builder&)>& populate, const Configure& configure,
                       std::uint16_t port)
    : port_(port) {
    UA_ServerConfig config{};
    config.logging = &silent;
    (configure ? configure : plain)(config, port);
    UA_Array_delete(config.serverUrls, config.serverUrlsSize, &UA_TYPES[UA_TYPES_STRING]);
    config.serverUrls = static_cast<UA_String*>(UA_Array_new(1, &UA_TYPES[UA_TYPES_STRING]));
    config.serverUrlsSize = 1;
    config.serverUrls[0] = copied(endpoint());
    config.samplingIntervalLimits.min = 5;
    config.publishingIntervalLimits.min = 5;
    config.context = this;
    config.monitoredItemRegisterCallback = [](UA_Server* server, const UA_NodeId*, void*,
                                              const UA_NodeId*, void*, UA_UInt32, UA_Boolean gone) {
        auto* const self = static_cast<TestServer*>(UA_Server_getConfig(server)->context);
        self->monitored_ += gone ? -1 : 1;
    };
    server_ = UA_Server_newWithConfig(&config);
    if (!server_) throw std::runtime_error("no server");
    Builder builder(server_);
    populate(builder);
    require(UA_Server_run_startup(server_), "startup");
    thread_ = std::thread([this] { serve(); });
}

std::string TestServer::endpoint() const { return "opc.tcp://127.0.0.1:" + std::to_string(port_); }

void TestServer::serve() {
    while (!stopped_) {
        UA_Server_run_iterate(server_, false);
        UA_EventLoop* const loop = UA_Server_getConfig(server_)->eventLoop;
        loop->run(loop, 2);
        std::vector<std::function<void()>> commands;
        {
            const std::lock_guard lock(mutex_);
            commands.swap(commands_);
        }
        for (const auto& command : commands) command();
    }
    UA_Server_run_shutdown(server_);
    UA_Server_delete(server_);
}

void TestServer::run(const std::function<void(Builder&)>& command) {
    std::promise<void> done;
    {
        const std::lock_guard lock(mutex_);
        commands_.push_back([&] {
            try {
                Builder builder(server_);
                command(builder);
                done.set_value();
            } catch (...) {
                done.set_exception(std::current_exception());
            }
        });
    }
    done.get_future().get();
}

void TestServer::stop() {
    if (!thread_.joinable()) return;
    stopped_ = true;
    thread_.join();
}

}  // namespace velt::opcua::test
