// SPDX-License-Identifier: MIT
// The published model of the runtime is that of the server.
#include "demo/runtimemodel.h"

#include "adapters/opcua/ua.h"
#include "tests/filebytes.h"

#include <open62541/nodeids.h>
#include <open62541/server.h>

#include <gmock/gmock.h>

#include <map>
#include <memory>
#include <regex>
#include <set>

namespace velt::demo {
namespace {

/// By the node's number in the model: what is told of it, a line each.
using Model = std::map<unsigned, std::set<std::string>>;

/// What a document says, whose name space of the model is 1.
Model modelOf(const std::string& document) {
    const std::regex statement(
        "<(UA\\w+) NodeId=\"ns=1;i=(\\d+)\" BrowseName=\"(?:1:)?(\\w+)\""
        "|DataType=\"i=(\\d+)\"|ValueRank=\"(\\d+)\""
        "|<Reference ReferenceType=\"i=(\\d+)\"( IsForward=\"false\")?>(?:ns=(1);)?i=(\\d+)"
        "|<Name>(\\w+)</Name>\\s*<DataType><Identifier>i=(\\d+)");
    Model model;
    std::set<std::string>* node = nullptr;
    for (std::sregex_iterator at(document.begin(), document.end(), statement), end; at != end;
         ++at) {
        const std::smatch& m = *at;
        if (m[1].matched) {
            node = &model[static_cast<unsigned>(std::stoul(m[2]))];
            node->insert(m.str(1) + " " + m.str(3));
        }
        if (m[4].matched) node->insert("type " + m.str(4));
        if (m[5].matched) node->insert("rank " + m.str(5));
        if (m[6].matched)
            node->insert((m[7].matched ? "from " : "to ") + m.str(9) + (m[8].matched ? "! " : " ") +
                         m.str(6));
        if (m[10].matched) node->insert("argument " + m.str(10) + " " + m.str(11));
    }
    return model;
}

class RuntimeModelTest : public testing::Test {
protected:
    /// What the server says of a node, and of those below it.
    void add(unsigned id, Model& model) {
        if (model.contains(id)) return;
        std::set<std::string>& lines = model[id];
        const UA_NodeId node = UA_NODEID_NUMERIC(space_, id);
        UA_NodeClass nodeClass{};
        opcua::Owned<UA_QualifiedName, UA_TYPES_QUALIFIEDNAME> name;
        UA_Server_readNodeClass(server_.get(), node, &nodeClass);
        UA_Server_readBrowseName(server_.get(), node, name.get());
        const std::map<UA_NodeClass, std::string> tags = {
            {UA_NODECLASS_OBJECT, "UAObject "},
            {UA_NODECLASS_OBJECTTYPE, "UAObjectType "},
            {UA_NODECLASS_VARIABLE, "UAVariable "},
            {UA_NODECLASS_METHOD, "UAMethod "}};
        lines.insert(tags.at(nodeClass) + opcua::toText(name->name));
        if (nodeClass == UA_NODECLASS_VARIABLE) addType(node, lines);
        UA_BrowseDescription all{};
        all.nodeId = node;
        all.browseDirection = UA_BROWSEDIRECTION_BOTH;
        all.resultMask = UA_BROWSERESULTMASK_ALL;
        const opcua::Owned<UA_BrowseResult, UA_TYPES_BROWSERESULT> found(
            UA_Server_browse(server_.get(), 0, &all));
        for (std::size_t i = 0; i < found->referencesSize; ++i) {
            const UA_ReferenceDescription& r = found->references[i];
            const unsigned type = r.referenceTypeId.identifier.numeric;
            const unsigned target = r.nodeId.nodeId.identifier.numeric;
            const bool own = r.nodeId.nodeId.namespaceIndex == space_;
            lines.insert((r.isForward ? "to " : "from ") + std::to_string(target) +
                         (own ? "! " : " ") + std::to_string(type));
            if (own && r.isForward) add(target, model);
        }
    }
    void addType(const UA_NodeId& node, std::set<std::string>& lines) {
        opcua::NodeId type;
        UA_Int32 rank = 0;
        opcua::OwnedVariant value;
        UA_Server_readDataType(server_.get(), node, type.get());
        UA_Server_readValueRank(server_.get(), node, &rank);
        UA_Server_readValue(server_.get(), node, value.get());
        lines.insert("type " + std::to_string(type->identifier.numeric));
        if (rank != UA_VALUERANK_SCALAR) lines.insert("rank " + std::to_string(rank));
        if (value->type != &UA_TYPES[UA_TYPES_ARGUMENT]) return;
        const UA_Argument& argument = *static_cast<const UA_Argument*>(value->data);
        lines.insert("argument " + opcua::toText(argument.name) + " " +
                     std::to_string(argument.dataType.identifier.numeric));
    }

    std::unique_ptr<UA_Server, decltype(&UA_Server_delete)> server_{UA_Server_new(),
                                                                    UA_Server_delete};
    std::uint16_t space_ = runtimemodel::addTypes(*server_);
};

TEST_F(RuntimeModelTest, ThePublishedModelIsThatOfTheServer) {
    Model actual;
    for (const unsigned root :
         {runtimemodel::RuntimeType, runtimemodel::StazioneType, runtimemodel::ErroreEventType})
        add(root, actual);
    EXPECT_THAT(actual, testing::SizeIs(testing::Gt(10u)));
    EXPECT_EQ(actual, modelOf(test::bytesOf(NODESET_FILE)));
}

}  // namespace
}  // namespace velt::demo
