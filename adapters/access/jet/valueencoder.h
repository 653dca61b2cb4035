// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/access/jet/format.h"
#include "adapters/access/jet/textcodec.h"
#include "platform/variant.h"

#include <cstdint>
#include <vector>

namespace velt::jet {

/// Appends `value`, which is not null, in the form in which `column` stores it (of a Memo or OLE
/// the bytes of the whole value). Numbers go into every numeric column that holds them exactly
/// (Currency rounds to its four decimals), decimal text into Numeric, bytes into Binary, Ole and
/// Guid. RuntimeError 13 when the type does not fit, 6 when the value is too large or too long.
void appendValue(const Column& column, const Variant& value, TextEncoding encoding,
                 std::vector<std::uint8_t>& out);

/// What a Boolean column stores; RuntimeError 13 when it is no Boolean.
[[nodiscard]] bool asBoolean(const Column& column, const Variant& value);

}  // namespace velt::jet
