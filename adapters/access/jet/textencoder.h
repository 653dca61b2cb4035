// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/access/jet/textcodec.h"

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace velt::jet {

/// Appends UTF-8 text in its stored form; returns how many characters of the file's encoding it
/// has. What is not UTF-8 becomes U+FFFD. RuntimeError 13 when the encoding cannot hold it.
std::size_t appendText(std::string_view text, TextEncoding encoding, bool compressible,
                       std::vector<std::uint8_t>& out);

}  // namespace velt::jet
