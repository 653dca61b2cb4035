// SPDX-License-Identifier: MIT
// Values as a server expects them.
#include "adapters/opcua/status.h"
#include "adapters/opcua/times.h"
#include "adapters/opcua/values.h"
#include "platform/runtimeerror.h"

#include <cmath>
#include <limits>
#include <type_traits>

namespace velt::opcua {
namespace {

[[noreturn]] void wrongType(const std::string& description) {
    throw RuntimeError(static_cast<int>(UA_STATUSCODE_BADTYPEMISMATCH), description);
}

template <typename To>
[[noreturn]] void outOfRange() {
    throw RuntimeError(ErrorNumber::Overflow,
                       "Il valore non è compreso tra " +
                           std::to_string(std::numeric_limits<To>::lowest()) + " e " +
                           std::to_string(std::numeric_limits<To>::max()));
}

template <typename To, typename From>
To number(From value) {
    if constexpr (std::is_same_v<To, bool> || std::is_same_v<From, bool>) {
        if constexpr (std::is_same_v<To, From>) return value;
        wrongType("Valori logici e numeri non si sostituiscono a vicenda");
    } else if constexpr (std::is_integral_v<To> && std::is_integral_v<From>) {
        if (!std::in_range<To>(value)) outOfRange<To>();
        return static_cast<To>(value);
    } else if constexpr (std::is_integral_v<To>) {
        // Both ends are exact as doubles, or the next number beyond the end is.
        const double wide = value;
        if (!(wide >= static_cast<double>(std::numeric_limits<To>::lowest()) &&
              wide < static_cast<double>(std::numeric_limits<To>::max()) + 1.0))
            outOfRange<To>();
        if (wide != std::trunc(wide)) wrongType("Il server vuole un numero intero");
        return static_cast<To>(wide);
    } else {
        if (std::isfinite(static_cast<double>(value)) &&
            std::abs(static_cast<double>(value)) >
                static_cast<double>(std::numeric_limits<To>::max()))
            outOfRange<To>();
        return static_cast<To>(value);
    }
}

template <typename To, typename From>
void storeNumber(void* slot, const From& from) {
    if constexpr (std::is_arithmetic_v<From>)
        *static_cast<To*>(slot) = number<To>(from);
    else
        wrongType("Il server vuole un numero o un valore logico");
}

void storeText(void* slot, const std::string& text) {
    *static_cast<UA_String*>(slot) = copied(text);
}

/// Puts one element into its place in memory of the library.
template <typename From>
void store(void* slot, int element, const From& from) {
    switch (element) {
        case UA_TYPES_BOOLEAN: return storeNumber<bool>(slot, from);
        case UA_TYPES_SBYTE: return storeNumber<UA_SByte>(slot, from);
        case UA_TYPES_BYTE: return storeNumber<UA_Byte>(slot, from);
        case UA_TYPES_INT16: return storeNumber<UA_Int16>(slot, from);
        case UA_TYPES_UINT16: return storeNumber<UA_UInt16>(slot, from);
        case UA_TYPES_INT32: return storeNumber<UA_Int32>(slot, from);
        case UA_TYPES_UINT32: return storeNumber<UA_UInt32>(slot, from);
        case UA_TYPES_INT64: return storeNumber<UA_Int64>(slot, from);
        case UA_TYPES_UINT64: return storeNumber<UA_UInt64>(slot, from);
        case UA_TYPES_FLOAT: return storeNumber<UA_Float>(slot, from);
        case UA_TYPES_DOUBLE: return storeNumber<UA_Double>(slot, from);
        case UA_TYPES_DATETIME:
            if constexpr (std::is_same_v<From, Date>) {
                *static_cast<UA_DateTime*>(slot) = toInstant(from);
                return;
            }
            wrongType("Il server vuole una data");
        case UA_TYPES_STRING:
            if constexpr (std::is_same_v<From, std::string>) return storeText(slot, from);
            wrongType("Il server vuole un testo");
        case UA_TYPES_LOCALIZEDTEXT:
            if constexpr (std::is_same_v<From, std::string>)
                return storeText(&static_cast<UA_LocalizedText*>(slot)->text, from);
            wrongType("Il server vuole un testo");
        default: wrongType("Il tipo della variabile non si può scrivere");
    }
}

template <typename T>
constexpr int ownElement = std::is_same_v<T, bool>           ? UA_TYPES_BOOLEAN
                           : std::is_same_v<T, std::uint8_t> ? UA_TYPES_BYTE
                           : std::is_same_v<T, std::int16_t> ? UA_TYPES_INT16
                           : std::is_same_v<T, std::int32_t> ? UA_TYPES_INT32
                           : std::is_same_v<T, float>        ? UA_TYPES_FLOAT
                           : std::is_same_v<T, double>       ? UA_TYPES_DOUBLE
                           : std::is_same_v<T, Date>         ? UA_TYPES_DATETIME
                                                             : UA_TYPES_STRING;

const UA_DataType* typeAt(int element) { return &UA_TYPES[element]; }

template <typename T>
OwnedVariant scalar(const T& value, const ValueType& expected) {
    if (expected.rankIsKnown() && expected.rank != UA_VALUERANK_SCALAR)
        wrongType("Il server vuole un array");
    const int element = expected.element == ValueType::Unknown ? ownElement<T> : expected.element;
    OwnedVariant result;
    UA_Variant_setScalar(result.get(), UA_new(typeAt(element)), typeAt(element));
    if (!result->data) throw std::bad_alloc();
    store(result->data, element, value);
    return result;
}

template <typename T>
OwnedVariant array(const std::vector<T>& values, const ValueType& expected) {
    OwnedVariant result;
    if constexpr (std::is_same_v<T, std::uint8_t>) {
        if (expected.element == UA_TYPES_BYTESTRING && expected.rank == UA_VALUERANK_SCALAR) {
            const UA_ByteString text = {values.size(), const_cast<UA_Byte*>(values.data())};
            if (UA_Variant_setScalarCopy(result.get(), &text, OwnedBytes::type()) !=
                UA_STATUSCODE_GOOD)
                throw std::bad_alloc();
            return result;
        }
    }
    if (expected.rank == UA_VALUERANK_SCALAR) wrongType("Il server vuole un valore solo");
    if (expected.rank > 1) wrongType("Le matrici non si possono scrivere");
    const int element = expected.element == ValueType::Unknown ? ownElement<T> : expected.element;
    UA_Variant_setArray(result.get(), UA_Array_new(values.size(), typeAt(element)), values.size(),
                        typeAt(element));
    if (!result->data) throw std::bad_alloc();
    auto* slot = static_cast<std::byte*>(result->data);
    for (auto&& value : values) {
        store<T>(slot, element, value);
        slot += typeAt(element)->memSize;
    }
    return result;
}

template <typename T>
constexpr bool isVector = false;
template <typename T>
constexpr bool isVector<std::vector<T>> = true;

}  // namespace

OwnedVariant toUa(const Variant& value, const ValueType& expected) {
    return std::visit(
        [&expected](const auto& held) -> OwnedVariant {
            using T = std::decay_t<decltype(held)>;
            if constexpr (std::is_same_v<T, std::monostate> || std::is_same_v<T, Null>)
                wrongType("Non c'è un valore da scrivere");
            else if constexpr (isVector<T>)
                return array(held, expected);
            else
                return scalar(held, expected);
        },
        value.storage());
}

}  // namespace velt::opcua
