// SPDX-License-Identifier: MIT
#include "adapters/access/jet/usagemap.h"

#include "adapters/access/jet/bytes.h"
#include "adapters/access/jet/datapage.h"
#include "adapters/access/jet/fileerror.h"

#include <bit>
#include <utility>

namespace velt::jet {
namespace {

constexpr std::uint8_t InlineMap = 0;
constexpr std::uint8_t MapOfPages = 1;

/// Gathers pages, all of which the file has.
class Pages {
public:
    explicit Pages(const PageReader& file) : file_(&file), pageCount_(file.pageCount()) {}

    void addBits(Bytes bitmap, std::uint64_t firstPage) {
        for (std::size_t i = 0; i < bitmap.size(); ++i)
            for (unsigned bits = bitmap[i]; bits != 0; bits &= bits - 1)
                add(firstPage + 8 * i + static_cast<unsigned>(std::countr_zero(bits)));
    }
    [[nodiscard]] std::vector<std::uint32_t> take() { return std::move(pages_); }

private:
    void add(std::uint64_t page) {
        // A writer adds a page to the file first and then to the map: look again.
        if (page >= pageCount_) pageCount_ = file_->pageCount();
        if (page >= pageCount_)
            throw fileError(ErrorNumber::UnknownFileFormat, file_->path(),
                            "è incompleto (troncato)");
        pages_.push_back(static_cast<std::uint32_t>(page));
    }

    const PageReader* file_;
    std::uint32_t pageCount_;
    std::vector<std::uint32_t> pages_;
};

void addMapPages(const PageReader& file, Bytes pointers, Pages& pages) {
    const std::size_t perPage = (file.layout().pageSize - 4) * 8;
    for (std::size_t slot = 0; slot < pointers.size() / 4; ++slot) {
        const std::uint32_t number = u32At(&pointers[4 * slot]);
        if (number == 0) continue;
        if (number >= file.pageCount()) throw Damaged("la mappa delle pagine esce dal file");
        const auto map = file.page(number);
        if (map[0] != static_cast<std::uint8_t>(PageType::Map))
            throw Damaged("manca una parte della mappa delle pagine");
        pages.addBits(Bytes(map).subspan(4), slot * perPage);
    }
}

}  // namespace

std::vector<std::uint32_t> mappedPages(const PageReader& file, RowPointer place) {
    if (place.page >= file.pageCount()) throw Damaged("la mappa delle pagine esce dal file");
    const auto bytes = file.page(place.page);
    const DataPage page(bytes.data(), file.layout());
    const auto map = place.row < page.rows() ? page.bytes(place.row) : std::nullopt;
    if (!map || map->size() < 5) throw Damaged("manca la mappa delle pagine");

    Pages pages(file);
    switch (map->front()) {
        case InlineMap: pages.addBits(map->subspan(5), u32At(&(*map)[1])); break;
        case MapOfPages: addMapPages(file, map->subspan(1), pages); break;
        default: throw Damaged("la mappa delle pagine è di tipo sconosciuto");
    }
    return pages.take();
}

}  // namespace velt::jet
