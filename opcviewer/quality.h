// SPDX-License-Identifier: MIT
#pragma once

#include "platform/export.h"

#include <cstdint>
#include <string>

namespace velt {

/// The text of a value that may be trusted without reserve.
inline constexpr const char* GoodQualityText = "Good";

/// The operator's text for a quality word of OPC Data Access: quality and sub-status. The whole
/// word counts: one with limit bits, or any other that has no text, reads "Quality N° " and its
/// number.
[[nodiscard]] VELT_API std::string DescrizioneQualita(std::int32_t quality);

}  // namespace velt
