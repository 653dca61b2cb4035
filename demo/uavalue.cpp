// SPDX-License-Identifier: MIT
#include "demo/uavalue.h"

#include "adapters/opcua/times.h"

#include <array>
#include <type_traits>

namespace velt::demo {
namespace {

constexpr std::array TypeIndices = {UA_TYPES_BOOLEAN, UA_TYPES_SBYTE,    UA_TYPES_BYTE,
                                    UA_TYPES_INT16,   UA_TYPES_UINT16,   UA_TYPES_INT32,
                                    UA_TYPES_UINT32,  UA_TYPES_INT64,    UA_TYPES_FLOAT,
                                    UA_TYPES_DOUBLE,  UA_TYPES_DATETIME, UA_TYPES_STRING};

template <typename T>
constexpr PlantType typeOf() {
    return static_cast<PlantType>(PlantValue(T{}).index());
}

/// How the library holds a T.
template <typename T>
auto native(const T& value) {
    if constexpr (std::is_same_v<T, Date>)
        return opcua::toInstant(value);
    else if constexpr (std::is_same_v<T, std::string>)
        return opcua::borrowed(value);
    else
        return value;
}

template <typename T>
using Native = decltype(native(T{}));

template <typename T>
T back(const Native<T>& value) {
    if constexpr (std::is_same_v<T, Date>)
        return opcua::toDate(value);
    else if constexpr (std::is_same_v<T, std::string>)
        return std::string(opcua::view(value));
    else
        return value;
}

template <typename T>
PlantValue valueOf(const UA_Variant& variant) {
    const auto* data = static_cast<const Native<T>*>(variant.data);
    if (UA_Variant_isScalar(&variant)) return back<T>(*data);
    std::vector<T> values;
    for (std::size_t i = 0; i < variant.arrayLength; ++i) values.push_back(back<T>(data[i]));
    return values;
}

template <typename T>
struct IsVector : std::false_type {};
template <typename T>
struct IsVector<std::vector<T>> : std::true_type {};

}  // namespace

UA_LocalizedText uaItalian(std::string_view text) {
    return {opcua::borrowed("it"), opcua::borrowed(text)};
}
UA_QualifiedName uaName(std::uint16_t space, std::string_view text) {
    return {space, opcua::borrowed(text)};
}

UA_NodeId uaId(std::uint16_t space, std::string_view text) {
    UA_NodeId id = UA_NODEID_NULL;
    id.namespaceIndex = space;
    id.identifierType = UA_NODEIDTYPE_STRING;
    id.identifier.string = opcua::borrowed(text);
    return id;
}

const UA_DataType& uaType(PlantType type) {
    return UA_TYPES[TypeIndices[static_cast<std::size_t>(type)]];
}

UA_StatusCode toUa(const PlantValue& value, UA_Variant& variant) {
    return std::visit(
        [&variant]<typename V>(const V& held) {
            if constexpr (IsVector<V>::value) {
                using T = typename V::value_type;
                const UA_DataType& type = uaType(typeOf<T>());
                // Not a std::vector: that of bool holds bits.
                auto* array = static_cast<Native<T>*>(UA_Array_new(held.size(), &type));
                if (!array) return UA_STATUSCODE_BADOUTOFMEMORY;
                UA_StatusCode status = UA_STATUSCODE_GOOD;
                for (std::size_t i = 0; i < held.size(); ++i) {
                    const T one = held[i];
                    const Native<T> shown = native(one);
                    status |= UA_copy(&shown, &array[i], &type);
                }
                UA_Variant_setArray(&variant, array, held.size(), &type);
                return status;
            } else {
                const Native<V> shown = native(held);
                return UA_Variant_setScalarCopy(&variant, &shown, &uaType(typeOf<V>()));
            }
        },
        value);
}

std::optional<PlantValue> fromUa(const UA_Variant& variant) {
    const auto is = [&variant](PlantType type) { return variant.type == &uaType(type); };
    if (is(PlantType::Boolean)) return valueOf<bool>(variant);
    if (is(PlantType::I1)) return valueOf<std::int8_t>(variant);
    if (is(PlantType::UI1)) return valueOf<std::uint8_t>(variant);
    if (is(PlantType::I2)) return valueOf<std::int16_t>(variant);
    if (is(PlantType::UI2)) return valueOf<std::uint16_t>(variant);
    if (is(PlantType::I4)) return valueOf<std::int32_t>(variant);
    if (is(PlantType::UI4)) return valueOf<std::uint32_t>(variant);
    if (is(PlantType::I8)) return valueOf<std::int64_t>(variant);
    if (is(PlantType::R4)) return valueOf<float>(variant);
    if (is(PlantType::R8)) return valueOf<double>(variant);
    if (is(PlantType::DateTime)) return valueOf<Date>(variant);
    if (is(PlantType::Text)) return valueOf<std::string>(variant);
    return std::nullopt;
}

}  // namespace velt::demo
