// SPDX-License-Identifier: MIT
// Values as they come from a server.
#include "adapters/opcua/values.h"

#include "adapters/opcua/times.h"

#include <algorithm>
#include <cstdint>
#include <span>
#include <utility>

namespace velt::opcua {
namespace {

constexpr std::size_t MaxText = 65'536;
constexpr std::size_t MaxElements = 10'000;

/// Cut before a character that would not be whole.
std::string bounded(std::string_view text) {
    if (text.size() <= MaxText) return std::string(text);
    std::size_t end = MaxText;
    while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80) --end;
    return std::string(text.substr(0, end)) + " [...] (" + std::to_string(text.size()) + " byte)";
}

std::string printed(const void* value, const UA_DataType* type) {
    OwnedString text;
    // A structure whose type is not known here cannot be printed: its name has to do.
    if (UA_print(value, type, text.get()) != UA_STATUSCODE_GOOD)
        return type->typeName ? "[" + std::string(type->typeName) + "]" : "[?]";
    return bounded(view(*text));
}

template <typename T>
constexpr bool fitsInt32(T value) {
    return std::in_range<std::int32_t>(value);
}

/// A whole number wider than 32 bits, by itself.
template <typename T>
Variant wideNumber(T value) {
    constexpr std::int64_t MaxExact = 999'999'999'999'999;  // what a double's text shows in full
    if (fitsInt32(value)) return static_cast<std::int32_t>(value);
    if (std::cmp_less_equal(value, MaxExact) && std::cmp_greater_equal(value, -MaxExact))
        return static_cast<double>(value);
    return std::to_string(value);
}

template <typename From>
std::span<const From> elements(const UA_Variant& value) {
    const std::size_t size = UA_Variant_isScalar(&value) ? 1 : value.arrayLength;
    return {static_cast<const From*>(value.data), size};
}

/// The value or values, each turned by `convert`.
template <typename From, typename Convert>
Variant converted(const UA_Variant& value, Convert convert) {
    const auto from = elements<From>(value);
    if (UA_Variant_isScalar(&value)) return convert(from.front());
    std::vector<decltype(convert(from.front()))> list;
    list.reserve(from.size());
    for (const From& element : from) list.push_back(convert(element));
    return list;
}

template <typename To, typename From = To>
Variant plain(const UA_Variant& value) {
    return converted<From>(value, [](const From& element) { return static_cast<To>(element); });
}

/// An array takes the narrowest type that holds all its elements.
template <typename From>
Variant wide(const UA_Variant& value) {
    const auto from = elements<From>(value);
    if (UA_Variant_isScalar(&value)) return wideNumber(from.front());
    if (std::ranges::all_of(from, fitsInt32<From>)) return plain<std::int32_t, From>(value);
    const auto isNumber = [](From element) {
        return !wideNumber(element).template holds<std::string>();
    };
    if (std::ranges::all_of(from, isNumber)) return plain<double, From>(value);
    return converted<From>(value, [](From element) { return std::to_string(element); });
}

Variant bytes(const UA_ByteString& text) {
    if (text.length > MaxElements) return "[" + std::to_string(text.length) + " byte]";
    return std::vector<std::uint8_t>(text.data, text.data + text.length);
}

}  // namespace

Variant toVariant(const UA_Variant& value) {
    if (!value.type) return {};
    const bool isScalar = UA_Variant_isScalar(&value);
    if (!isScalar && value.arrayLength > MaxElements)
        return "[" + std::to_string(value.arrayLength) + " elementi " +
               (value.type->typeName ? value.type->typeName : "") + "]";
    switch (value.type->typeKind) {
        case UA_DATATYPEKIND_BOOLEAN: return plain<bool>(value);
        case UA_DATATYPEKIND_SBYTE: return plain<std::int16_t, UA_SByte>(value);
        case UA_DATATYPEKIND_BYTE: return plain<std::uint8_t>(value);
        case UA_DATATYPEKIND_INT16: return plain<std::int16_t>(value);
        case UA_DATATYPEKIND_UINT16: return plain<std::int32_t, UA_UInt16>(value);
        case UA_DATATYPEKIND_INT32:
        case UA_DATATYPEKIND_ENUM: return plain<std::int32_t>(value);
        case UA_DATATYPEKIND_UINT32: return wide<UA_UInt32>(value);
        case UA_DATATYPEKIND_INT64: return wide<UA_Int64>(value);
        case UA_DATATYPEKIND_UINT64: return wide<UA_UInt64>(value);
        case UA_DATATYPEKIND_FLOAT: return plain<float>(value);
        case UA_DATATYPEKIND_DOUBLE: return plain<double>(value);
        case UA_DATATYPEKIND_DATETIME: return converted<UA_DateTime>(value, toDate);
        case UA_DATATYPEKIND_STRING:
        case UA_DATATYPEKIND_XMLELEMENT:
            return converted<UA_String>(value, [](const auto& t) { return bounded(view(t)); });
        case UA_DATATYPEKIND_LOCALIZEDTEXT:
            return converted<UA_LocalizedText>(value,
                                               [](const auto& t) { return bounded(view(t.text)); });
        case UA_DATATYPEKIND_QUALIFIEDNAME:
            return converted<UA_QualifiedName>(value,
                                               [](const auto& t) { return bounded(view(t.name)); });
        case UA_DATATYPEKIND_BYTESTRING:
            if (isScalar) return bytes(*static_cast<const UA_ByteString*>(value.data));
            break;
        default: break;
    }
    if (isScalar) return printed(value.data, value.type);
    std::vector<std::string> list;
    list.reserve(value.arrayLength);
    const auto* element = static_cast<const std::byte*>(value.data);
    for (std::size_t i = 0; i < value.arrayLength; ++i, element += value.type->memSize)
        list.push_back(printed(element, value.type));
    return list;
}

}  // namespace velt::opcua
