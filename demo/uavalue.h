// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/opcua/ua.h"
#include "demo/plantvalue.h"

#include <cstdint>
#include <optional>
#include <string_view>

namespace velt::demo {

// As opcua::borrowed(): for calls that copy what they are given.
[[nodiscard]] UA_LocalizedText uaItalian(std::string_view text);
[[nodiscard]] UA_QualifiedName uaName(std::uint16_t space, std::string_view text);
/// A node of the standard's own name space.
[[nodiscard]] inline UA_NodeId ns0(std::uint32_t id) { return UA_NODEID_NUMERIC(0, id); }
[[nodiscard]] UA_NodeId uaId(std::uint16_t space, std::string_view text);

[[nodiscard]] const UA_DataType& uaType(PlantType type);

/// Copies a value into an empty variant. Dates are civil time here and UTC there.
[[nodiscard]] UA_StatusCode toUa(const PlantValue& value, UA_Variant& variant);
/// Nothing for a type that the plant does not know.
[[nodiscard]] std::optional<PlantValue> fromUa(const UA_Variant& variant);

}  // namespace velt::demo
