// SPDX-License-Identifier: MIT
#include "adapters/access/jet/longvaluewriter.h"

#include "adapters/access/jet/bytewriter.h"
#include "adapters/access/jet/usagemap.h"
#include "platform/runtimeerror.h"

#include <algorithm>

namespace velt::jet {
namespace {

constexpr std::size_t LongestInline = 64;
constexpr std::size_t LongestValue = 0x3FFFFFFF;
constexpr std::size_t LinkSize = 4;

constexpr std::uint32_t KindChain = 0;
constexpr std::uint32_t KindOneRow = 0x40000000;
constexpr std::uint32_t KindInline = 0x80000000;

void putPointer(RowPointer pointer, std::vector<std::uint8_t>& out) {
    put(out, pointer.page << 8 | pointer.row);
}

void putHead(std::size_t length, std::uint32_t kind, RowPointer pointer,
             std::vector<std::uint8_t>& row) {
    put(row, static_cast<std::uint32_t>(length) | kind);
    putPointer(pointer, row);
    put(row, std::uint32_t{0});
}

}  // namespace

LongValueWriter::LongValueWriter(PageAllocator& allocator, const LongColumn& column)
    : pages_(allocator, LongValueOwner, column.ownedPages, column.freePages),
      longest_(RowAppender::longestRow(allocator.file().layout())) {
    const auto pages = mappedPages(*allocator.file().reader(), column.ownedPages);
    if (!pages.empty()) pages_.resume(pages.back());
}

void LongValueWriter::append(Bytes value, std::vector<std::uint8_t>& row) {
    if (value.size() > LongestValue) throw RuntimeError(ErrorNumber::Overflow);
    if (value.size() <= LongestInline) {
        putHead(value.size(), KindInline, {}, row);
        row.insert(row.end(), value.begin(), value.end());
    } else if (value.size() <= longest_) {
        putHead(value.size(), KindOneRow, pages_.append(value), row);
    } else {
        putHead(value.size(), KindChain, appendChain(value), row);
    }
}

/// From the last part to the first, because each names the place of the next.
RowPointer LongValueWriter::appendChain(Bytes value) {
    const std::size_t partSize = longest_ - LinkSize;
    RowPointer next;
    while (!value.empty()) {
        const std::size_t rest = value.size() % partSize;
        const Bytes last = value.last(rest == 0 ? partSize : rest);
        part_.clear();
        putPointer(next, part_);
        part_.insert(part_.end(), last.begin(), last.end());
        next = pages_.append(part_);
        value = value.first(value.size() - last.size());
    }
    return next;
}

}  // namespace velt::jet
