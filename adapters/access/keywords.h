// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/access/sqltoken.h"

namespace velt::access {

/// True for a bare word that belongs to the language; every other word is a name. LEFT and RIGHT
/// are functions before a bracket: that is for the caller to see.
[[nodiscard]] bool isKeyword(const SqlToken& token);

/// True for `=`, `<`, `>`, `<=`, `>=`, `<>`.
[[nodiscard]] bool isComparison(const SqlToken& token);
/// True for `+`, `-`, `*`, `/`.
[[nodiscard]] bool isArithmetic(const SqlToken& token);

}  // namespace velt::access
