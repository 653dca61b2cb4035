// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/opcua/ua.h"
#include "platform/variant.h"

/// Between values of OPC UA and Variant.
namespace velt::opcua {

/// What a variable of a server holds.
struct ValueType {
    static constexpr int Unknown = -1;

    int element = Unknown;  ///< UA_TYPES_BOOLEAN, ... of the built-in type
    UA_Int32 rank = UA_VALUERANK_ANY;

    [[nodiscard]] bool rankIsKnown() const;
    /// The type code for the operator's side (`vartype`, or another code of the VARTYPE
    /// enumeration: 16, 18 to 21), by OPC 10000-8, A.4.3.1; 12 for what has none.
    [[nodiscard]] int canonical() const;
};

/// From the attributes DataType and ValueRank. Types of the server's own (as enumerations) stay
/// Unknown; the abstract ones (BaseDataType, Number, ...) have no canonical type.
[[nodiscard]] ValueType typeOf(const UA_NodeId& dataType, UA_Int32 rank);
/// From a value; Unknown from an empty one.
[[nodiscard]] ValueType typeOf(const UA_Variant& value);
/// The type with that canonical code; Unknown for 12 and what is not known.
[[nodiscard]] ValueType typeOfCanonical(int code);

/// The value as the logic takes it. Whole numbers that no 32 bits hold become doubles, beyond
/// 15 digits text; texts in any wrapping become text; matrices are laid out in one row; what has no
/// counterpart becomes its text. A text above 64 KiB is cut, and of an array above 10,000 elements
/// only its size is told, both visibly. Takes whatever a server may send.
[[nodiscard]] Variant toVariant(const UA_Variant& value);

/// The value in the type that the server expects. What does not fit exactly raises RuntimeError,
/// 6 for a number out of range, with a description of the reason; nothing is ever cut. An unknown
/// type takes the value's own.
[[nodiscard]] OwnedVariant toUa(const Variant& value, const ValueType& expected);

}  // namespace velt::opcua
