// SPDX-License-Identifier: MIT
#include "adapters/access/jet/writer.h"

#include "adapters/access/jet/catalog.h"
#include "adapters/access/jet/fileerror.h"
#include "adapters/access/jet/header.h"
#include "adapters/access/jet/newcolumns.h"
#include "adapters/access/jet/systemtables.h"
#include "adapters/access/jet/tablemaker.h"
#include "adapters/access/jet/tablewriter.h"

#include <map>
#include <optional>
#include <utility>

namespace velt::jet {
namespace {

/// Page 1: the map of free pages, in which all but the first two are free, and an empty map.
std::vector<std::uint8_t> makeFreePagesPage(const Layout& layout) {
    std::vector<std::uint8_t> free(mapRowSize(layout), 0xFF);
    std::fill_n(free.begin(), 5, std::uint8_t{0});
    free[5] = 0xFC;
    return makeMapPage(layout, 1, {free, std::vector<std::uint8_t>(mapRowSize(layout))});
}

/// Runs `step`; damage becomes the error that names the file.
template <typename Step>
auto namingFile(const std::filesystem::path& path, const Step& step) {
    try {
        return step();
    } catch (const Damaged& damage) {
        throw fileError(ErrorNumber::UnknownFileFormat, path,
                        std::string("è danneggiato (") + damage.what() + ")");
    }
}

bool wasMadeHere(const PageReader& file) {
    const auto header = parseHeader(file.page(0));
    return header && header->created == CreationDate;
}

}  // namespace

struct Writer::Impl {
    explicit Impl(std::shared_ptr<const PageReader> reader)
        : file(std::move(reader)), allocator(file) {}

    PageFile file;
    PageAllocator allocator;
    std::vector<CatalogEntry> entries;
    std::optional<CatalogWriter> catalog;                    ///< from the first new table on
    std::map<std::string, TableWriter, std::less<>> tables;  ///< by name as it was asked for

    TableWriter& openTable(std::string_view name);
    void flush() {
        for (auto& [name, table] : tables) table.flush();
    }
};

TableWriter& Writer::Impl::openTable(std::string_view name) {
    const auto known = tables.find(name);
    if (known != tables.end()) return known->second;
    const CatalogEntry* entry = findEntry(entries, name);
    if (entry == nullptr || entry->linked)
        throw fileError(ErrorNumber::UnknownTable, file.path(),
                        "non contiene la tabella \"" + std::string(name) + "\"");
    if (const auto same = tables.find(entry->name); same != tables.end()) return same->second;
    const TableDefinition definition = readDefinition(*file.reader(), entry->definitionPage);
    if (definition.indexes > 0)
        throw fileError(ErrorNumber::InvalidCall, file.path(),
                        "la tabella \"" + entry->name + "\" ha un indice e non può essere scritta");
    TableWriter& table =
        tables.try_emplace(entry->name, allocator, entry->definitionPage).first->second;
    if (table.isWritable()) return table;
    tables.erase(entry->name);
    throw fileError(
        ErrorNumber::InvalidCall, file.path(),
        "la tabella \"" + entry->name + "\" ha colonne di un tipo che non può essere scritto");
}

Writer Writer::create(const std::filesystem::path& path, Version version) {
    if (version != Version::Jet3 && version != Version::Jet4)
        throw RuntimeError(ErrorNumber::InvalidCall);
    const auto reader = PageReader::create(path, version);
    try {
        // The header comes last: until then the file is no database to anyone.
        const Layout& layout = reader->layout();
        PageFile file(reader);
        for (int page = 0; page < 2; ++page) static_cast<void>(file.takePage());
        file.write(1, 0, makeFreePagesPage(layout));
        PageAllocator allocator(file);
        makeSystemTables(allocator);
        file.write(0, 0, makeHeader(version, CreationDate));
        return Writer(std::make_unique<Impl>(reader));
    } catch (...) {
        std::error_code ignored;  // the first error is the one to report
        std::filesystem::remove(path, ignored);
        throw;
    }
}

Writer Writer::open(const std::filesystem::path& path) {
    return namingFile(path, [&path] {
        const auto reader = PageReader::open(path, PageReader::Mode::ReadWrite);
        auto impl = std::make_unique<Impl>(reader);
        impl->entries = readCatalog(reader);
        return Writer(std::move(impl));
    });
}

Writer::Writer(std::unique_ptr<Impl> impl) : impl_(std::move(impl)) {}
Writer::Writer(Writer&&) noexcept = default;

Writer& Writer::operator=(Writer&& other) noexcept {
    std::swap(impl_, other.impl_);
    return *this;
}

Writer::~Writer() {
    if (!impl_) return;
    try {
        impl_->flush();
    } catch (const std::exception&) {
        // A destructor cannot report; who needs to know calls flush().
    }
}

void Writer::createTable(std::string_view name, std::span<const ColumnDefinition> columns) {
    namingFile(impl_->file.path(), [&] {
        checkName(name);
        if (findEntry(impl_->entries, name) != nullptr)
            throw fileError(ErrorNumber::InvalidCall, impl_->file.path(),
                            "contiene già la tabella \"" + std::string(name) + "\"");
        std::vector<Column> placed = layOutColumns(columns, impl_->file.layout());
        if (!impl_->catalog) impl_->catalog.emplace(impl_->allocator);
        if (impl_->catalog->hasIndexes() && !wasMadeHere(*impl_->file.reader()))
            throw fileError(ErrorNumber::InvalidCall, impl_->file.path(),
                            "è di un altro programma e non può ricevere nuove tabelle");
        impl_->catalog->checkTable(name);
        const std::uint32_t page = impl_->allocator.takePage();
        makeTable(impl_->allocator, page, false, std::move(placed));
        impl_->catalog->addTable(name, page);
        impl_->entries.push_back({std::string(name), page, false});
    });
}

void Writer::append(std::string_view table, std::span<const Variant> values) {
    namingFile(impl_->file.path(),
               [&] { static_cast<void>(impl_->openTable(table).append(values)); });
}

void Writer::flush() { impl_->flush(); }

}  // namespace velt::jet
