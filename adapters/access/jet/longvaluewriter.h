// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/access/jet/bytes.h"
#include "adapters/access/jet/rowappender.h"
#include "adapters/access/jet/tabledefinition.h"

#include <cstdint>
#include <vector>

namespace velt::jet {

/// Stores the values of one Memo or OLE column outside of the rows where they are long.
class LongValueWriter {
public:
    LongValueWriter(PageAllocator& allocator, const LongColumn& column);

    /// Appends to `row` what stands there for `value`.
    void append(Bytes value, std::vector<std::uint8_t>& row);
    /// Must come before the rows that point here are flushed.
    void flush() { pages_.flush(); }

private:
    RowPointer appendChain(Bytes value);

    RowAppender pages_;
    std::size_t longest_;
    std::vector<std::uint8_t> part_;
};

}  // namespace velt::jet
