// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/access/jet/bytes.h"

#include <string>
#include <string_view>

namespace velt::jet {

/// How a file stores text: Windows-1252 up to Jet 3, UTF-16 (compressed or not) since Jet 4.
enum class TextEncoding { Windows1252, Utf16 };

/// Stored text as UTF-8. The view is into `stored` where its bytes are UTF-8 already, otherwise
/// into `buffer`. Unpaired surrogates and a cut last unit become U+FFFD.
[[nodiscard]] std::string_view decodeText(Bytes stored, TextEncoding encoding, std::string& buffer);
[[nodiscard]] std::string decodeText(Bytes stored, TextEncoding encoding);

/// True when every byte is 1..127: such text is its own UTF-8 and its own compressed form.
[[nodiscard]] bool isPlain(Bytes bytes);

/// True when two UTF-8 names differ at most in the case of Latin letters (accented ones included).
[[nodiscard]] bool sameName(std::string_view a, std::string_view b);

}  // namespace velt::jet
