// SPDX-License-Identifier: MIT
#include "tests/demo/nodesettext.h"

#include <algorithm>
#include <map>
#include <set>

namespace velt::demo {
namespace {

constexpr std::uint32_t FirstInstance = 2000;  // below it are the model's own nodes

/// In the document the server's own name space is 0 and that of the model 1.
std::string idText(const UA_NodeId& id) {
    const std::string number = "i=" + std::to_string(id.identifier.numeric);
    return id.namespaceIndex == 0 ? number : "ns=1;" + number;
}

std::string nameText(const UA_QualifiedName& name) {
    const std::string text(opcua::view(name.name));
    return name.namespaceIndex == 0 ? text : "1:" + text;
}

class Document {
public:
    Document(UaClient& client, std::uint16_t space) : client_(client), space_(space) {}

    void add(std::uint32_t id) {
        if (!seen_.insert(id).second) return;
        const UA_NodeId node = UA_NODEID_NUMERIC(space_, id);
        std::string references;
        std::string parent;
        std::set<std::uint32_t> below;
        for (const UA_BrowseDirection direction :
             {UA_BROWSEDIRECTION_FORWARD, UA_BROWSEDIRECTION_INVERSE})
            reference(node, direction, references, parent, below);
        nodes_[id] = element(node, parent, references);
        for (const std::uint32_t child : below) add(child);
    }

    std::string text(const std::string& uri) const {
        std::string text =
            "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
            "<!-- SPDX-License-Identifier: MIT -->\n"
            "<UANodeSet xmlns=\"http://opcfoundation.org/UA/2011/03/UANodeSet.xsd\">\n"
            "  <NamespaceUris>\n    <Uri>" +
            uri +
            "</Uri>\n  </NamespaceUris>\n"
            "  <Models>\n    <Model ModelUri=\"" +
            uri +
            "\" Version=\"1.0.0\""
            " PublicationDate=\"2026-01-01T00:00:00Z\">\n"
            "      <RequiredModel ModelUri=\"http://opcfoundation.org/UA/\"/>\n"
            "    </Model>\n  </Models>\n";
        for (const auto& [id, node] : nodes_) text += node;
        return text + "</UANodeSet>\n";
    }

private:
    void reference(const UA_NodeId& node, UA_BrowseDirection direction, std::string& references,
                   std::string& parent, std::set<std::uint32_t>& below) {
        UA_BrowseDescription description;
        UA_BrowseDescription_init(&description);
        description.nodeId = node;
        description.browseDirection = direction;
        description.resultMask = UA_BROWSERESULTMASK_ALL;
        UA_BrowseRequest request;
        UA_BrowseRequest_init(&request);
        request.nodesToBrowse = &description;
        request.nodesToBrowseSize = 1;
        UA_BrowseResponse response = UA_Client_Service_browse(client_.get(), request);
        std::set<std::string> lines;
        for (std::size_t i = 0; i < response.results[0].referencesSize; ++i) {
            const UA_ReferenceDescription& r = response.results[0].references[i];
            const UA_NodeId& target = r.nodeId.nodeId;
            const std::uint32_t type = r.referenceTypeId.identifier.numeric;
            const bool ofModel = target.namespaceIndex == space_;
            if (ofModel && (target.identifierType != UA_NODEIDTYPE_NUMERIC ||
                            target.identifier.numeric >= FirstInstance))
                continue;
            if (direction == UA_BROWSEDIRECTION_INVERSE && ofModel &&
                (type == UA_NS0ID_HASCOMPONENT || type == UA_NS0ID_HASPROPERTY))
                parent = idText(target);
            if (direction == UA_BROWSEDIRECTION_FORWARD && ofModel &&
                (type == UA_NS0ID_HASCOMPONENT || type == UA_NS0ID_HASPROPERTY))
                below.insert(target.identifier.numeric);
            lines.insert("      <Reference ReferenceType=\"" + idText(r.referenceTypeId) + "\"" +
                         (r.isForward ? "" : " IsForward=\"false\"") + ">" + idText(target) +
                         "</Reference>\n");
        }
        UA_BrowseResponse_clear(&response);
        for (const std::string& line : lines) references += line;
    }

    std::string element(const UA_NodeId& node, const std::string& parent,
                        const std::string& references) {
        UA_NodeClass nodeClass = UA_NODECLASS_UNSPECIFIED;
        UA_Client_readNodeClassAttribute(client_.get(), node, &nodeClass);
        opcua::Owned<UA_QualifiedName, UA_TYPES_QUALIFIEDNAME> name;
        UA_Client_readBrowseNameAttribute(client_.get(), node, name.get());
        const std::map<UA_NodeClass, std::string> tags = {{UA_NODECLASS_OBJECT, "UAObject"},
                                                          {UA_NODECLASS_OBJECTTYPE, "UAObjectType"},
                                                          {UA_NODECLASS_VARIABLE, "UAVariable"},
                                                          {UA_NODECLASS_METHOD, "UAMethod"}};
        const std::string& tag = tags.at(nodeClass);
        std::string text =
            "  <" + tag + " NodeId=\"" + idText(node) + "\" BrowseName=\"" + nameText(*name) + "\"";
        if (!parent.empty()) text += " ParentNodeId=\"" + parent + "\"";
        std::string value;
        if (nodeClass == UA_NODECLASS_VARIABLE) {
            opcua::NodeId type;
            UA_Int32 rank = 0;
            UA_Client_readDataTypeAttribute(client_.get(), node, type.get());
            UA_Client_readValueRankAttribute(client_.get(), node, &rank);
            text += " DataType=\"" + idText(*type) + "\"";
            if (rank != UA_VALUERANK_SCALAR) text += " ValueRank=\"" + std::to_string(rank) + "\"";
            if (rank > 0) text += " ArrayDimensions=\"0\"";
            value = arguments(node);
        }
        return text + ">\n    <DisplayName>" + std::string(opcua::view(name->name)) +
               "</DisplayName>\n    <References>\n" + references + "    </References>\n" + value +
               "  </" + tag + ">\n";
    }

    std::string arguments(const UA_NodeId& node) {
        opcua::OwnedVariant variant;
        UA_Client_readValueAttribute(client_.get(), node, variant.get());
        if (variant->type != &UA_TYPES[UA_TYPES_ARGUMENT]) return "";
        std::string text =
            "    <Value>\n"
            "      <ListOfExtensionObject "
            "xmlns=\"http://opcfoundation.org/UA/2008/02/Types.xsd\">\n";
        for (std::size_t i = 0; i < variant->arrayLength; ++i) {
            const UA_Argument& argument = static_cast<const UA_Argument*>(variant->data)[i];
            text +=
                "        <ExtensionObject>\n"
                "          <TypeId><Identifier>i=297</Identifier></TypeId>\n"
                "          <Body>\n            <Argument>\n              <Name>" +
                opcua::toText(argument.name) + "</Name>\n              <DataType><Identifier>" +
                idText(argument.dataType) + "</Identifier></DataType>\n              <ValueRank>" +
                std::to_string(argument.valueRank) +
                "</ValueRank>\n              <ArrayDimensions/>\n"
                "              <Description><Locale>it</Locale><Text>" +
                opcua::toText(argument.description.text) +
                "</Text></Description>\n"
                "            </Argument>\n          </Body>\n        </ExtensionObject>\n";
        }
        return text + "      </ListOfExtensionObject>\n    </Value>\n";
    }

    UaClient& client_;
    std::uint16_t space_;
    std::set<std::uint32_t> seen_;
    std::map<std::uint32_t, std::string> nodes_;
};

}  // namespace

std::string nodeSetText(UaClient& client, std::uint16_t space, const std::string& uri,
                        const std::vector<std::uint32_t>& roots) {
    Document document(client, space);
    for (const std::uint32_t root : roots) document.add(root);
    return document.text(uri);
}

}  // namespace velt::demo
