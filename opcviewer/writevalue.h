// SPDX-License-Identifier: MIT
#pragma once

#include "platform/export.h"
#include "platform/locale.h"
#include "platform/variant.h"

#include <optional>
#include <string>
#include <vector>

/// From the text that an operator types to the value that is written.
namespace velt {

/// The parts of `text` between semicolons; at least one, which may be empty.
[[nodiscard]] VELT_API std::vector<std::string> SeparaParti(const std::string& text);

/// The value for an item of canonical type `type` (a code of the VARTYPE enumeration): of the
/// first part for a scalar, of each part one element for an array. Nothing when such items cannot
/// be written from text. RuntimeError 13 for text of the wrong kind, 6 for a number that does not
/// fit. `parts` must not be empty.
[[nodiscard]] VELT_API std::optional<Variant> ConvertiParti(int type,
                                                            const std::vector<std::string>& parts,
                                                            const Locale& locale);

}  // namespace velt
