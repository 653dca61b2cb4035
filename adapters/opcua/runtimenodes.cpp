// SPDX-License-Identifier: MIT
#include "adapters/opcua/runtimenodes.h"

#include "adapters/opcua/browse.h"
#include "adapters/opcua/status.h"
#include "platform/runtimeerror.h"

#include <open62541/client_highlevel.h>
#include <open62541/nodeids.h>

#include <algorithm>
#include <iterator>
#include <string_view>

namespace velt::opcua {
namespace {

constexpr std::string_view Model = "urn:velt:runtime";
constexpr std::size_t MaxStations = 10'000;
constexpr std::array<std::string_view, 4> MethodNames = {"ConnettiRTU", "DisconnettiRTU",
                                                         "DownloadRTU", "DownloadTutte"};

[[noreturn]] void noRuntime() {
    throw RuntimeError(ErrorNumber::ObjectNotSet, "Il server non offre il runtime");
}

UA_UInt16 spaceOfModel(UA_Client& client) {
    UA_String uri = borrowed(Model);
    UA_UInt16 index = 0;
    const UA_StatusCode status = UA_Client_NamespaceGetIndex(&client, &uri, &index);
    if (status == UA_STATUSCODE_BADNOTFOUND) noRuntime();
    check(status);
    return index;
}

std::vector<Child> childrenOf(UA_Client& client, const OperationLimits& limits,
                              const NodeId& parent) {
    std::size_t limit = MaxStations;
    std::vector<Children> found = browseChildren(client, limits, {{parent, false}}, limit);
    check(found[0].status);
    return std::move(found[0].nodes);
}

NodeId server(UA_Client& client, const OperationLimits& limits) {
    const NodeId objects(NodeId::copyOf(UA_NODEID_NUMERIC(0, UA_NS0ID_OBJECTSFOLDER)));
    for (const Child& child : childrenOf(client, limits, objects))
        if (child.name == "PC_Server" && !child.isVariable) return child.id;
    noRuntime();
}

/// The node at the end of each path of names below `start`, all asked for at once; null where there
/// is none.
std::vector<NodeId> resolve(UA_Client& client, const UA_NodeId& start, UA_UInt16 space,
                            const std::vector<std::vector<std::string_view>>& paths) {
    std::vector<std::vector<UA_RelativePathElement>> elements(paths.size());
    std::vector<UA_BrowsePath> wanted(paths.size());
    for (std::size_t i = 0; i < paths.size(); ++i) {
        for (const std::string_view name : paths[i]) {
            UA_RelativePathElement element{};
            element.referenceTypeId = UA_NODEID_NUMERIC(0, UA_NS0ID_HIERARCHICALREFERENCES);
            element.includeSubtypes = true;
            element.targetName = {space, borrowed(name)};
            elements[i].push_back(element);
        }
        wanted[i].startingNode = start;
        wanted[i].relativePath = {elements[i].size(), elements[i].data()};
    }
    UA_TranslateBrowsePathsToNodeIdsRequest request{};
    request.browsePaths = wanted.data();
    request.browsePathsSize = wanted.size();
    const Owned<UA_TranslateBrowsePathsToNodeIdsResponse,
                UA_TYPES_TRANSLATEBROWSEPATHSTONODEIDSRESPONSE>
        response(UA_Client_Service_translateBrowsePathsToNodeIds(&client, request));
    check(response->responseHeader.serviceResult);
    std::vector<NodeId> nodes(paths.size());
    for (std::size_t i = 0; i < std::min(nodes.size(), response->resultsSize); ++i)
        if (response->results[i].targetsSize > 0)
            nodes[i] = NodeId(NodeId::copyOf(response->results[i].targets[0].targetId.nodeId));
    return nodes;
}

OwnedVariant read(UA_Client& client, const NodeId& node) {
    OwnedVariant value;
    check(UA_Client_readValueAttribute(&client, *node, value.get()));
    return value;
}

std::string text(const OwnedVariant& value) {
    if (!UA_Variant_hasScalarType(value.get(), &UA_TYPES[UA_TYPES_STRING])) return "";
    return toText(*static_cast<const UA_String*>(value->data));
}

std::vector<std::string> texts(const OwnedVariant& value) {
    std::vector<std::string> all;
    if (!UA_Variant_hasArrayType(value.get(), &UA_TYPES[UA_TYPES_STRING])) return all;
    const auto* const strings = static_cast<const UA_String*>(value->data);
    for (std::size_t i = 0; i < std::min(value->arrayLength, MaxStations); ++i)
        all.push_back(toText(strings[i]));
    return all;
}

std::vector<RuntimeNodes::Station> stationsOf(UA_Client& client, const OperationLimits& limits,
                                              const NodeId& folder) {
    const std::vector<Child> objects = childrenOf(client, limits, folder);
    std::vector<Parent> parents;
    for (const Child& object : objects) parents.push_back({object.id, false});
    std::size_t limit = 10 * MaxStations;
    const std::vector<Children> below = browseChildren(client, limits, parents, limit);
    std::vector<RuntimeNodes::Station> stations;
    for (std::size_t i = 0; i < objects.size(); ++i)
        for (const Child& child : below[i].nodes)
            if (child.name == "Stato" && child.isVariable)
                stations.push_back({objects[i].name, child.id});
    return stations;
}

}  // namespace

RuntimeNodes findRuntime(UA_Client& client, const OperationLimits& limits) {
    RuntimeNodes runtime;
    runtime.space = spaceOfModel(client);
    const NodeId branch = server(client, limits);
    std::vector<std::vector<std::string_view>> paths = {{"Runtime"},
                                                        {"Runtime", "Versione"},
                                                        {"Runtime", "NomeProgetto"},
                                                        {"Runtime", "ElencoRTU"},
                                                        {"Runtime", "Stazioni"}};
    const std::size_t mandatory = paths.size();
    for (const std::string_view method : MethodNames) paths.push_back({"Runtime", method});
    const std::vector<NodeId> nodes = resolve(client, *branch, runtime.space, paths);
    for (std::size_t i = 0; i < mandatory; ++i)
        if (UA_NodeId_isNull(nodes[i].get())) noRuntime();
    std::copy_n(nodes.begin() + static_cast<std::ptrdiff_t>(mandatory), MethodNames.size(),
                runtime.methods.begin());

    runtime.object = nodes[0];
    runtime.versione = text(read(client, nodes[1]));
    runtime.nomeProgetto = text(read(client, nodes[2]));
    runtime.elencoRTU = texts(read(client, nodes[3]));
    runtime.stations = stationsOf(client, limits, nodes[4]);
    return runtime;
}

}  // namespace velt::opcua
