// SPDX-License-Identifier: MIT
#include "adapters/access/jet/longvalue.h"

#include "adapters/access/jet/datapage.h"

namespace velt::jet {
namespace {

constexpr std::size_t HeadSize = 12;
constexpr std::size_t LinkSize = 4;

constexpr unsigned KindChain = 0;
constexpr unsigned KindOneRow = 1;
constexpr unsigned KindInline = 2;

[[noreturn]] void fail() { throw Damaged("un valore lungo non è intero"); }

std::vector<std::uint8_t> readPart(const PageReader& file, RowPointer place) {
    if (place.page >= file.pageCount()) fail();
    const auto bytes = file.page(place.page);
    const DataPage page(bytes.data(), file.layout());
    if (place.row >= page.rows()) fail();
    const auto row = page.bytes(place.row);
    if (!row) fail();
    return {row->begin(), row->end()};
}

void readChain(const PageReader& file, RowPointer place, std::size_t length,
               std::vector<std::uint8_t>& value) {
    const std::uint32_t mostParts = file.pageCount();
    for (std::uint32_t parts = 0; value.size() < length; ++parts) {
        if (place.page == 0 || parts == mostParts) fail();
        const auto row = readPart(file, place);
        if (row.size() <= LinkSize) fail();
        value.insert(value.end(), row.begin() + LinkSize, row.end());
        place = rowPointerAt(row.data());
    }
}

}  // namespace

Bytes readLongValue(const PageReader& file, Bytes head, std::vector<std::uint8_t>& buffer) {
    if (head.size() < HeadSize) fail();
    const std::uint32_t first = u32At(head.data());
    const std::size_t length = first & 0x3FFFFFFF;
    const RowPointer place = rowPointerAt(&head[4]);
    if (length == 0) return {};

    buffer.clear();
    switch (first >> 30) {
        case KindInline:
            if (head.size() - HeadSize < length) fail();
            return head.subspan(HeadSize, length);
        case KindOneRow: buffer = readPart(file, place); break;
        case KindChain: readChain(file, place, length, buffer); break;
        default: fail();
    }
    if (buffer.size() < length) fail();
    return Bytes(buffer).first(length);
}

}  // namespace velt::jet
