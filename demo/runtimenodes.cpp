// SPDX-License-Identifier: MIT
#include "demo/runtimenodes.h"

#include "demo/runtimemodel.h"
#include "demo/uaerror.h"
#include "demo/uavalue.h"

#include <open62541/server.h>

#include <exception>
#include <utility>

namespace velt::demo {
namespace {

/// The child of an object with that name in that name space.
opcua::NodeId child(UA_Server* server, const UA_NodeId& parent, const UA_QualifiedName& name) {
    UA_BrowsePathResult found = UA_Server_browseSimplifiedBrowsePath(server, parent, 1, &name);
    opcua::NodeId id;
    if (found.targetsSize > 0) id = opcua::NodeId::copyOf(found.targets[0].targetId.nodeId);
    const UA_StatusCode status = found.statusCode;
    UA_BrowsePathResult_clear(&found);
    check(status, opcua::view(name.name));
    return id;
}

bool isAnonymous(UA_Server* server, const UA_NodeId* session) {
    UA_String user = UA_STRING_NULL;
    const UA_StatusCode status = UA_Server_getSessionAttribute_scalar(
        server, session, uaName(0, "clientUserId"), &UA_TYPES[UA_TYPES_STRING], &user);
    return status != UA_STATUSCODE_GOOD || user.length == 0;
}

}  // namespace

/// What the library calls: no exception may pass through it.
struct RuntimeNodes::Callbacks {
    template <typename Action>
    static UA_StatusCode guarded(UA_Server* server, const UA_NodeId* session, void* context,
                                 const Action& action) {
        RuntimeNodes& nodes = *static_cast<RuntimeNodes*>(context);
        if (!nodes.anonymousMayCall_ && isAnonymous(server, session))
            return UA_STATUSCODE_BADUSERACCESSDENIED;
        try {
            return action(*nodes.runtime_) ? UA_STATUSCODE_GOOD : UA_STATUSCODE_BADNOTFOUND;
        } catch (const std::exception&) {
            return UA_STATUSCODE_BADINTERNALERROR;
        }
    }

    template <bool (PlantRuntime::*request)(const std::string&)>
    static UA_StatusCode ofStation(UA_Server* server, const UA_NodeId* session, void*,
                                   const UA_NodeId*, void* context, const UA_NodeId*, void*,
                                   std::size_t, const UA_Variant* input, std::size_t, UA_Variant*) {
        // The library has checked that there is one text.
        return guarded(server, session, context, [&](PlantRuntime& runtime) {
            return (runtime.*request)(opcua::toText(*static_cast<const UA_String*>(input->data)));
        });
    }

    static UA_StatusCode ofAll(UA_Server* server, const UA_NodeId* session, void*, const UA_NodeId*,
                               void* context, const UA_NodeId*, void*, std::size_t,
                               const UA_Variant*, std::size_t, UA_Variant*) {
        return guarded(server, session, context, [](PlantRuntime& runtime) {
            runtime.downloadAll();
            return true;
        });
    }

    static UA_StatusCode readState(UA_Server*, const UA_NodeId*, void*, const UA_NodeId*,
                                   void* context, UA_Boolean, const UA_NumericRange*,
                                   UA_DataValue* result) {
        const Line& line = *static_cast<const Line*>(context);
        const auto code = static_cast<UA_Int32>(line.runtime->state(line.station));
        result->hasValue = true;
        return UA_Variant_setScalarCopy(&result->value, &code, &UA_TYPES[UA_TYPES_INT32]);
    }
};

RuntimeNodes::RuntimeNodes(std::unique_ptr<PlantRuntime> runtime, bool anonymousMayCall)
    : runtime_(std::move(runtime)), anonymousMayCall_(anonymousMayCall) {
    runtime_->Errore.subscribe([this](const std::string& message, const std::string& station) {
        sendErrore(message, station);
    });
}

void RuntimeNodes::addTo(UA_Server& server, std::uint16_t plantSpace) {
    server_ = &server;
    space_ = runtimemodel::addTypes(server);
    const auto method = [this](std::uint32_t id, UA_MethodCallback callback) {
        const UA_NodeId node = UA_NODEID_NUMERIC(space_, id);
        check(UA_Server_setMethodNodeCallback(server_, node, callback), "Metodo del runtime");
        check(UA_Server_setNodeContext(server_, node, this), "Metodo del runtime");
    };
    method(runtimemodel::ConnettiRTU, Callbacks::ofStation<&PlantRuntime::connect>);
    method(runtimemodel::DisconnettiRTU, Callbacks::ofStation<&PlantRuntime::disconnect>);
    method(runtimemodel::DownloadRTU, Callbacks::ofStation<&PlantRuntime::download>);
    method(runtimemodel::DownloadTutte, Callbacks::ofAll);

    const UA_NodeId runtime = uaId(space_, "Runtime");
    UA_ObjectAttributes attributes = UA_ObjectAttributes_default;
    attributes.displayName = uaItalian("Runtime");
    attributes.eventNotifier = UA_EVENTNOTIFIER_SUBSCRIBE_TO_EVENT;
    check(UA_Server_addObjectNode(server_, runtime, uaId(plantSpace, "PC_Server"),
                                  ns0(UA_NS0ID_HASCOMPONENT), uaName(space_, "Runtime"),
                                  UA_NODEID_NUMERIC(space_, runtimemodel::RuntimeType), attributes,
                                  nullptr, nullptr),
          "Runtime");
    const auto set = [&](const char* name, const PlantValue& value) {
        opcua::OwnedVariant variant;
        check(toUa(value, *variant), name);
        check(
            UA_Server_writeValue(server_, *child(server_, runtime, uaName(space_, name)), *variant),
            name);
    };
    const PlantRuntimeOptions& options = runtime_->options();
    set("Versione", options.version);
    set("NomeProgetto", options.project);
    set("ElencoRTU", options.stations);
    const opcua::NodeId folder = child(server_, runtime, uaName(space_, "Stazioni"));
    for (std::size_t i = 0; i < options.stations.size(); ++i) addStation(*folder, i);
}

void RuntimeNodes::addStation(const UA_NodeId& folder, std::size_t station) {
    const std::string& name = runtime_->options().stations[station];
    UA_ObjectAttributes attributes = UA_ObjectAttributes_default;
    attributes.displayName = uaItalian(name);
    opcua::NodeId object;
    check(UA_Server_addObjectNode(server_, UA_NODEID_NUMERIC(space_, 0), folder,
                                  ns0(UA_NS0ID_HASCOMPONENT), uaName(space_, name),
                                  UA_NODEID_NUMERIC(space_, runtimemodel::StazioneType), attributes,
                                  nullptr, object.get()),
          name);
    const opcua::NodeId state = child(server_, *object, uaName(space_, "Stato"));
    lines_.push_back({runtime_.get(), station});
    check(UA_Server_setNodeContext(server_, *state, &lines_.back()), name);
    check(UA_Server_setVariableNode_dataSource(server_, *state, {Callbacks::readState, nullptr}),
          name);
}

void RuntimeNodes::sendErrore(const std::string& message, const std::string& station) {
    opcua::NodeId event;
    check(UA_Server_createEvent(server_, UA_NODEID_NUMERIC(space_, runtimemodel::ErroreEventType),
                                event.get()),
          "Errore");
    UA_UInt16 severity = 500;
    UA_DateTime now = UA_DateTime_now();
    UA_LocalizedText text = uaItalian(message);
    UA_String source = opcua::borrowed("Runtime");
    UA_String name = opcua::borrowed(station);
    const auto set = [&](const UA_QualifiedName& property, const void* value, std::size_t type) {
        check(
            UA_Server_writeObjectProperty_scalar(server_, *event, property, value, &UA_TYPES[type]),
            "Errore");
    };
    set(uaName(0, "Severity"), &severity, UA_TYPES_UINT16);
    set(uaName(0, "Time"), &now, UA_TYPES_DATETIME);
    set(uaName(0, "Message"), &text, UA_TYPES_LOCALIZEDTEXT);
    set(uaName(0, "SourceName"), &source, UA_TYPES_STRING);
    set(uaName(space_, "Stazione"), &name, UA_TYPES_STRING);
    check(UA_Server_triggerEvent(server_, *event, uaId(space_, "Runtime"), nullptr, true),
          "Errore");
}

}  // namespace velt::demo
