// SPDX-License-Identifier: MIT
#include "adapters/opcua/addressspace.h"
#include "adapters/opcua/status.h"

namespace velt::opcua {
namespace {

bool needsValue(const ValueType& type) {
    return type.element == ValueType::Unknown ||
           (type.element != UA_TYPES_VARIANT && !type.rankIsKnown());
}

}  // namespace

std::vector<ValueType> readTypes(UA_Client& client, const OperationLimits& limits,
                                 const std::vector<NodeId>& variables,
                                 const std::stop_token& stop) {
    std::vector<ValueType> types(variables.size());
    std::vector<UA_ReadValueId> ids;
    ids.reserve(2 * variables.size());
    for (const NodeId& node : variables) {
        ids.push_back(attributeOf(*node, UA_ATTRIBUTEID_DATATYPE));
        ids.push_back(attributeOf(*node, UA_ATTRIBUTEID_VALUERANK));
    }
    std::vector<NodeId> dataTypes(variables.size());
    const auto takeAttribute = [&](std::size_t number, const UA_DataValue& result) {
        const UA_Variant& value = result.value;
        if (number % 2 == 0 && UA_Variant_hasScalarType(&value, NodeId::type()))
            dataTypes[number / 2] =
                NodeId(NodeId::copyOf(*static_cast<const UA_NodeId*>(value.data)));
        if (number % 2 == 1 && UA_Variant_hasScalarType(&value, &UA_TYPES[UA_TYPES_INT32]))
            types[number / 2].rank = *static_cast<const UA_Int32*>(value.data);
    };
    readAttributes(client, limits, ids, takeAttribute, stop);
    for (std::size_t i = 0; i < types.size(); ++i) types[i] = typeOf(*dataTypes[i], types[i].rank);

    ids.clear();
    std::vector<std::size_t> unclear;
    for (std::size_t i = 0; i < types.size(); ++i) {
        if (!needsValue(types[i])) continue;
        unclear.push_back(i);
        ids.push_back(attributeOf(*variables[i], UA_ATTRIBUTEID_VALUE));
    }
    const auto takeValue = [&](std::size_t number, const UA_DataValue& result) {
        ValueType& type = types[unclear[number]];
        const ValueType seen = typeOf(result.value);
        if (seen.element == ValueType::Unknown) return;  // no value yet: nothing to go by
        if (type.element == ValueType::Unknown) type.element = seen.element;
        if (!type.rankIsKnown()) type.rank = seen.rank;
    };
    readAttributes(client, limits, ids, takeValue, stop);
    return types;
}

}  // namespace velt::opcua
