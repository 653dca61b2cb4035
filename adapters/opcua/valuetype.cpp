// SPDX-License-Identifier: MIT
// The types of variables: from the server's attributes to the operator's codes.
#include "adapters/opcua/values.h"

#include <open62541/nodeids.h>

#include <algorithm>
#include <array>

namespace velt::opcua {
namespace {

constexpr int I1 = 16;
constexpr int UI2 = 18;
constexpr int UI4 = 19;
constexpr int I8 = 20;
constexpr int UI8 = 21;
constexpr int VariantCode = 12;

struct Pair {
    int element;
    int code;
};

/// Of several elements with one code the first is the one that typeOfCanonical() gives.
constexpr std::array pairs = {
    Pair{UA_TYPES_BOOLEAN, vartype::Bool},
    Pair{UA_TYPES_SBYTE, I1},
    Pair{UA_TYPES_BYTE, vartype::UI1},
    Pair{UA_TYPES_INT16, vartype::I2},
    Pair{UA_TYPES_UINT16, UI2},
    Pair{UA_TYPES_INT32, vartype::I4},
    Pair{UA_TYPES_UINT32, UI4},
    Pair{UA_TYPES_INT64, I8},
    Pair{UA_TYPES_UINT64, UI8},
    Pair{UA_TYPES_FLOAT, vartype::R4},
    Pair{UA_TYPES_DOUBLE, vartype::R8},
    Pair{UA_TYPES_STRING, vartype::BStr},
    Pair{UA_TYPES_DATETIME, vartype::Date},
    Pair{UA_TYPES_LOCALIZEDTEXT, vartype::BStr},
};

}  // namespace

bool ValueType::rankIsKnown() const {
    return rank != UA_VALUERANK_ANY && rank != UA_VALUERANK_SCALAR_OR_ONE_DIMENSION;
}

int ValueType::canonical() const {
    if (element == UA_TYPES_BYTESTRING && rank == UA_VALUERANK_SCALAR)
        return vartype::Array + vartype::UI1;
    const auto* const found = std::ranges::find(pairs, element, &Pair::element);
    if (found == pairs.end()) return VariantCode;
    return found->code + (rankIsKnown() && rank != UA_VALUERANK_SCALAR ? vartype::Array : 0);
}

ValueType typeOf(const UA_NodeId& dataType, UA_Int32 rank) {
    ValueType type{ValueType::Unknown, rank};
    if (dataType.namespaceIndex != 0 || dataType.identifierType != UA_NODEIDTYPE_NUMERIC)
        return type;
    switch (dataType.identifier.numeric) {
        case UA_NS0ID_DURATION: type.element = UA_TYPES_DOUBLE; break;
        case UA_NS0ID_UTCTIME: type.element = UA_TYPES_DATETIME; break;
        case UA_NS0ID_LOCALEID: type.element = UA_TYPES_STRING; break;
        case UA_NS0ID_COUNTER: type.element = UA_TYPES_UINT32; break;
        // What is written into these could be of any kind: no canonical type, no look at the value.
        case UA_NS0ID_BASEDATATYPE:
        case UA_NS0ID_NUMBER:
        case UA_NS0ID_INTEGER:
        case UA_NS0ID_UINTEGER: type.element = UA_TYPES_VARIANT; break;
        default:
            // The built-in types have the same numbers as nodes, counted from 1, as in the table.
            if (dataType.identifier.numeric >= 1 &&
                dataType.identifier.numeric <= UA_NS0ID_LOCALIZEDTEXT)
                type.element = static_cast<int>(dataType.identifier.numeric) - 1;
    }
    return type;
}

ValueType typeOf(const UA_Variant& value) {
    if (!value.type) return {};
    ValueType type;
    // Enumerations travel as 32-bit numbers.
    const int kind = value.type->typeKind == UA_DATATYPEKIND_ENUM
                         ? UA_TYPES_INT32
                         : static_cast<int>(value.type->typeKind);
    type.element = kind <= UA_DATATYPEKIND_DIAGNOSTICINFO ? kind : UA_TYPES_EXTENSIONOBJECT;
    if (UA_Variant_isScalar(&value))
        type.rank = UA_VALUERANK_SCALAR;
    else
        type.rank = std::max<UA_Int32>(1, static_cast<UA_Int32>(value.arrayDimensionsSize));
    return type;
}

ValueType typeOfCanonical(int code) {
    const bool isArray = code >= vartype::Array;
    const auto* const found =
        std::ranges::find(pairs, isArray ? code - vartype::Array : code, &Pair::code);
    return {found == pairs.end() ? ValueType::Unknown : found->element,
            isArray ? UA_VALUERANK_ONE_DIMENSION : UA_VALUERANK_SCALAR};
}

}  // namespace velt::opcua
