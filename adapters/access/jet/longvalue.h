// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/access/jet/bytes.h"
#include "adapters/access/jet/pagereader.h"

#include <cstdint>
#include <vector>

namespace velt::jet {

/// The value that the head of a Memo or OLE value in a row stands for: inline behind the head, in
/// one row of another page, or in a chain of such rows. The result looks into `head` or `buffer`.
/// Damaged when it is not there whole.
[[nodiscard]] Bytes readLongValue(const PageReader& file, Bytes head,
                                  std::vector<std::uint8_t>& buffer);

}  // namespace velt::jet
