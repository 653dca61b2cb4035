// SPDX-License-Identifier: MIT
#pragma once

#include "platform/export.h"
#include "platform/locale.h"
#include "platform/variant.h"

#include <string>

namespace velt {

/// A value as the item table shows it: a scalar by its default text, an array in the form
/// "(1; 2; 3)", an empty one as "()".
[[nodiscard]] VELT_API std::string FormattaValore(const Variant& value, const Locale& locale);

}  // namespace velt
