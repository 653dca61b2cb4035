// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/access/jet/bytes.h"
#include "adapters/access/jet/format.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace velt::jet {

/// Bytes of the first page that tell what a file is; all that is read of it.
inline constexpr std::size_t HeaderSize = 0xA0;

struct Header {
    Version version;
    bool encrypted;
    double created;  ///< date
};

/// What the first bytes of a file say; nothing when they are not those of an Access file.
[[nodiscard]] std::optional<Header> parseHeader(Bytes start);

/// The first page of a file without password that was created at `created`.
[[nodiscard]] std::vector<std::uint8_t> makeHeader(Version version, double created);

/// Applies the fixed mask of the header's middle part; applying it again takes it off.
void maskHeader(std::span<std::uint8_t> start, Version version);

}  // namespace velt::jet
