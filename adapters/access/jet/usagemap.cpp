// SPDX-License-Identifier: MIT
#include "adapters/access/jet/usagemap.h"

#include "adapters/access/jet/bytes.h"
#include "adapters/access/jet/datapage.h"
#include "adapters/access/jet/fileerror.h"

#include <bit>
#include <limits>

namespace velt::jet {
namespace {

constexpr std::uint8_t InlineMap = 0;
constexpr std::uint8_t MapOfPages = 1;

void appendBits(Bytes bitmap, std::uint64_t firstPage, std::vector<std::uint32_t>& pages) {
    if (firstPage + 8 * bitmap.size() > std::numeric_limits<std::uint32_t>::max())
        throw Damaged("la mappa delle pagine esce dal file");
    for (std::size_t i = 0; i < bitmap.size(); ++i)
        for (unsigned bits = bitmap[i]; bits != 0; bits &= bits - 1)
            pages.push_back(static_cast<std::uint32_t>(
                firstPage + 8 * i + static_cast<unsigned>(std::countr_zero(bits))));
}

void appendMapPages(const PageReader& file, Bytes pointers, std::vector<std::uint32_t>& pages) {
    const std::size_t perPage = (file.layout().pageSize - 4) * 8;
    for (std::size_t slot = 0; slot < pointers.size() / 4; ++slot) {
        const std::uint32_t number = u32At(&pointers[4 * slot]);
        if (number == 0) continue;
        if (number >= file.pageCount()) throw Damaged("la mappa delle pagine esce dal file");
        const auto map = file.page(number);
        if (map[0] != static_cast<std::uint8_t>(PageType::Map))
            throw Damaged("manca una parte della mappa delle pagine");
        appendBits(Bytes(map).subspan(4), slot * perPage, pages);
    }
}

}  // namespace

std::vector<std::uint32_t> mappedPages(const PageReader& file, RowPointer place) {
    if (place.page >= file.pageCount()) throw Damaged("la mappa delle pagine esce dal file");
    const auto bytes = file.page(place.page);
    const DataPage page(bytes.data(), file.layout());
    const auto map = place.row < page.rows() ? page.bytes(place.row) : std::nullopt;
    if (!map || map->size() < 5) throw Damaged("manca la mappa delle pagine");

    std::vector<std::uint32_t> pages;
    switch (map->front()) {
        case InlineMap: appendBits(map->subspan(5), u32At(&(*map)[1]), pages); break;
        case MapOfPages: appendMapPages(file, map->subspan(1), pages); break;
        default: throw Damaged("la mappa delle pagine è di tipo sconosciuto");
    }
    // The size is asked for after the map was read: a writer adds pages in the other order.
    if (!pages.empty() && pages.back() >= file.pageCount())
        throw fileError(ErrorNumber::UnknownFileFormat, file.path(), "è incompleto (troncato)");
    return pages;
}

}  // namespace velt::jet
