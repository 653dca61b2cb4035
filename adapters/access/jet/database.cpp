// SPDX-License-Identifier: MIT
#include "adapters/access/jet/database.h"

#include "adapters/access/jet/bytes.h"
#include "adapters/access/jet/catalog.h"
#include "adapters/access/jet/fileerror.h"
#include "adapters/access/jet/tablecontent.h"

#include <utility>

namespace velt::jet {
namespace {

/// Another program may be writing just now: what contradicts itself is read once more before it
/// counts as damaged.
template <typename Read>
auto readTwice(const Read& read) {
    try {
        return read();
    } catch (const Damaged&) {
        return read();
    }
}

}  // namespace

struct Database::Impl {
    std::shared_ptr<const PageReader> file;
    std::vector<CatalogEntry> catalog;
};

std::shared_ptr<Database> Database::open(const std::filesystem::path& path) {
    auto impl = std::make_unique<Impl>();
    impl->file = PageReader::open(path);
    try {
        impl->catalog = readTwice([&impl] { return readCatalog(impl->file); });
    } catch (const Damaged& damage) {
        throw fileError(ErrorNumber::UnknownFileFormat, path,
                        std::string("è danneggiato (catalogo: ") + damage.what() + ")");
    }
    return std::shared_ptr<Database>(new Database(std::move(impl)));
}

Database::Database(std::unique_ptr<Impl> impl) : impl_(std::move(impl)) {}

Database::~Database() = default;

Version Database::version() const { return impl_->file->version(); }

const std::filesystem::path& Database::path() const { return impl_->file->path(); }

std::vector<std::string> Database::tableNames() const {
    std::vector<std::string> names;
    for (const CatalogEntry& entry : impl_->catalog)
        if (!entry.linked) names.push_back(entry.name);
    return names;
}

bool Database::hasTable(std::string_view name) const {
    const CatalogEntry* entry = findEntry(impl_->catalog, name);
    return entry != nullptr && !entry->linked;
}

Table Database::table(std::string_view name) const {
    const CatalogEntry* entry = findEntry(impl_->catalog, name);
    if (entry == nullptr)
        throw fileError(ErrorNumber::UnknownTable, path(),
                        "non contiene la tabella \"" + std::string(name) + "\"");
    if (entry->linked)
        throw fileError(ErrorNumber::UnknownTable, path(),
                        "la tabella \"" + entry->name + "\" è collegata a un altro database");
    try {
        return readTwice(
            [&] { return loadTable(impl_->file, entry->name, entry->definitionPage); });
    } catch (const Damaged& damage) {
        throw fileError(ErrorNumber::UnknownFileFormat, path(),
                        "la tabella \"" + entry->name + "\" è danneggiata (" + damage.what() + ")");
    }
}

}  // namespace velt::jet
