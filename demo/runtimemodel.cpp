// SPDX-License-Identifier: MIT
#include "demo/runtimemodel.h"

#include "demo/uaerror.h"
#include "demo/uavalue.h"

#include <open62541/server.h>

#include <string_view>

namespace velt::demo::runtimemodel {
namespace {

/// Adds nodes of the model one by one.
class Model {
public:
    explicit Model(UA_Server& server)
        : server_(&server), space_(UA_Server_addNamespace(&server, Space)) {}

    [[nodiscard]] std::uint16_t space() const { return space_; }

    void objectType(std::uint32_t id, std::uint32_t base, std::string_view name) {
        UA_ObjectTypeAttributes attributes = UA_ObjectTypeAttributes_default;
        attributes.displayName = text(name);
        check(UA_Server_addObjectTypeNode(server_, own(id), ns0(base), ns0(UA_NS0ID_HASSUBTYPE),
                                          uaName(space_, name), attributes, nullptr, nullptr),
              name);
    }

    void variable(std::uint32_t id, std::uint32_t parent, std::string_view name,
                  std::uint32_t reference, std::uint32_t type, std::uint32_t dataType,
                  UA_Int32 rank = UA_VALUERANK_SCALAR) {
        UA_UInt32 anyLength = 0;
        UA_VariableAttributes attributes = UA_VariableAttributes_default;
        attributes.displayName = text(name);
        attributes.dataType = ns0(dataType);
        attributes.valueRank = rank;
        if (rank > 0) {
            attributes.arrayDimensions = &anyLength;
            attributes.arrayDimensionsSize = 1;
        }
        check(UA_Server_addVariableNode(server_, own(id), own(parent), ns0(reference),
                                        uaName(space_, name), ns0(type), attributes, nullptr,
                                        nullptr),
              name);
        mandatory(id);
    }

    void folder(std::uint32_t id, std::uint32_t parent, std::string_view name) {
        UA_ObjectAttributes attributes = UA_ObjectAttributes_default;
        attributes.displayName = text(name);
        check(UA_Server_addObjectNode(server_, own(id), own(parent), ns0(UA_NS0ID_HASCOMPONENT),
                                      uaName(space_, name), ns0(UA_NS0ID_FOLDERTYPE), attributes,
                                      nullptr, nullptr),
              name);
        mandatory(id);
    }

    /// Its argument, if it has one, is a station.
    void method(std::uint32_t id, std::uint32_t parent, std::string_view name, bool ofStation) {
        UA_MethodAttributes attributes = UA_MethodAttributes_default;
        attributes.displayName = text(name);
        attributes.executable = attributes.userExecutable = true;
        UA_Argument station;
        UA_Argument_init(&station);
        station.name = opcua::borrowed("Stazione");
        station.description = uaItalian("Nome della stazione");
        station.dataType = ns0(UA_NS0ID_STRING);
        station.valueRank = UA_VALUERANK_SCALAR;
        check(UA_Server_addMethodNodeEx(
                  server_, own(id), own(parent), ns0(UA_NS0ID_HASCOMPONENT), uaName(space_, name),
                  attributes, nullptr, ofStation ? 1 : 0, &station,
                  ofStation ? own(id + ArgumentsOffset) : UA_NODEID_NULL, nullptr, 0, nullptr,
                  UA_NODEID_NULL, nullptr, nullptr, nullptr),
              name);
        mandatory(id);
    }

private:
    static constexpr std::uint32_t ArgumentsOffset = 10;

    [[nodiscard]] UA_NodeId own(std::uint32_t id) const { return UA_NODEID_NUMERIC(space_, id); }
    [[nodiscard]] static UA_LocalizedText text(std::string_view name) {
        return {UA_STRING_NULL, opcua::borrowed(name)};
    }
    void mandatory(std::uint32_t id) {
        check(UA_Server_addReference(server_, own(id), ns0(UA_NS0ID_HASMODELLINGRULE),
                                     {ns0(UA_NS0ID_MODELLINGRULE_MANDATORY), UA_STRING_NULL, 0},
                                     true),
              "HasModellingRule");
    }

    UA_Server* server_;
    std::uint16_t space_;
};

}  // namespace

std::uint16_t addTypes(UA_Server& server) {
    Model model(server);
    const auto component = [&model](std::uint32_t id, std::uint32_t parent, std::string_view name,
                                    std::uint32_t dataType, UA_Int32 rank = UA_VALUERANK_SCALAR) {
        model.variable(id, parent, name, UA_NS0ID_HASCOMPONENT, UA_NS0ID_BASEDATAVARIABLETYPE,
                       dataType, rank);
    };
    model.objectType(StazioneType, UA_NS0ID_BASEOBJECTTYPE, "StazioneType");
    component(1041, StazioneType, "Stato", UA_NS0ID_INT32);

    model.objectType(RuntimeType, UA_NS0ID_BASEOBJECTTYPE, "RuntimeType");
    component(1011, RuntimeType, "Versione", UA_NS0ID_STRING);
    component(1012, RuntimeType, "NomeProgetto", UA_NS0ID_STRING);
    component(1013, RuntimeType, "ElencoRTU", UA_NS0ID_STRING, UA_VALUERANK_ONE_DIMENSION);
    model.method(ConnettiRTU, RuntimeType, "ConnettiRTU", true);
    model.method(DisconnettiRTU, RuntimeType, "DisconnettiRTU", true);
    model.method(DownloadRTU, RuntimeType, "DownloadRTU", true);
    model.method(DownloadTutte, RuntimeType, "DownloadTutte", false);
    model.folder(1014, RuntimeType, "Stazioni");

    model.objectType(ErroreEventType, UA_NS0ID_BASEEVENTTYPE, "ErroreEventType");
    model.variable(1051, ErroreEventType, "Stazione", UA_NS0ID_HASPROPERTY, UA_NS0ID_PROPERTYTYPE,
                   UA_NS0ID_STRING);
    return model.space();
}

}  // namespace velt::demo::runtimemodel
