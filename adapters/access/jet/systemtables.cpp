// SPDX-License-Identifier: MIT
#include "adapters/access/jet/systemtables.h"

#include "adapters/access/jet/bytes.h"
#include "adapters/access/jet/fileerror.h"
#include "adapters/access/jet/indexleaf.h"
#include "adapters/access/jet/newcolumns.h"
#include "adapters/access/jet/tablemaker.h"
#include "platform/variant.h"

#include <array>
#include <string>
#include <vector>

namespace velt::jet {

struct CatalogWriter::Object {
    std::int32_t id;
    std::int32_t parent;
    std::string_view name;
    std::int16_t type;
    std::uint16_t owner;
    std::int32_t flags;
};

struct CatalogWriter::Permission {
    std::int32_t object;
    std::uint16_t user;
    std::int32_t rights;
    bool inherited;
};

namespace {

using Type = ColumnType;
using Object = CatalogWriter::Object;
using Permission = CatalogWriter::Permission;

constexpr std::uint32_t PermissionsPage = 3;

// Objects of the catalogue
constexpr std::int32_t Root = 0x0F000000;
constexpr std::int32_t Tables = 0x0F000001;
constexpr std::int32_t Databases = 0x0F000002;
constexpr std::int32_t Relationships = 0x0F000003;
constexpr std::int32_t DatabaseObject = 0x10000000;

constexpr std::int16_t TypeTable = 1;
constexpr std::int16_t TypeDatabase = 2;
constexpr std::int16_t TypeContainer = 3;
constexpr std::int32_t SystemObject = INT32_MIN;

// Users, as their ids lie in a file of CreationDate: bytes in the order of the digits.
constexpr std::uint16_t Engine = 0x6589;
constexpr std::uint16_t Users = 0x648B;
constexpr std::uint16_t Admins = 0x658B;
constexpr std::uint16_t Creator = 0x658E;

constexpr std::int32_t AllTableRights = 0x0FFEFF;
constexpr std::size_t PermissionsPerTable = 3;

struct SystemTable {
    std::vector<ColumnDefinition> columns;
    std::vector<NewIndex> indexes;
};

NewIndex index(std::string_view name, std::vector<std::uint16_t> columns, std::uint8_t flags) {
    return {name, std::move(columns), flags, 0, {}};
}

/// On pages 2, 3, 4, 5.
std::array<SystemTable, 4> systemTables() {
    return {SystemTable{{{"Id", Type::Long},
                         {"ParentId", Type::Long},
                         {"Name", Type::Text},
                         {"Type", Type::Integer},
                         {"DateCreate", Type::Date},
                         {"DateUpdate", Type::Date},
                         {"Owner", Type::Binary},
                         {"Flags", Type::Long},
                         {"Database", Type::Memo},
                         {"Connect", Type::Memo},
                         {"ForeignName", Type::Text},
                         {"RmtInfoShort", Type::Binary},
                         {"RmtInfoLong", Type::Ole},
                         {"Lv", Type::Ole},
                         {"LvProp", Type::Ole},
                         {"LvModule", Type::Ole},
                         {"LvExtra", Type::Ole}},
                        {index("ParentIdName", {1, 2}, 0x81), index("Id", {0}, 0x81)}},
            SystemTable{{{"ObjectId", Type::Long},
                         {"SID", Type::Binary},
                         {"ACM", Type::Long},
                         {"FInheritable", Type::Boolean}},
                        {index("ObjectId", {0}, 0x80)}},
            SystemTable{{{"ObjectId", Type::Long},
                         {"Attribute", Type::Byte},
                         {"Order", Type::Binary},
                         {"Name1", Type::Text},
                         {"Name2", Type::Text},
                         {"Expression", Type::Memo},
                         {"Flag", Type::Integer},
                         {"LvExtra", Type::Long}},
                        {index("ObjectIdAttribute", {0, 1, 2}, 0x81)}},
            SystemTable{{{"szRelationship", Type::Text},
                         {"grbit", Type::Long},
                         {"ccolumn", Type::Long},
                         {"icolumn", Type::Long},
                         {"szObject", Type::Text},
                         {"szColumn", Type::Text},
                         {"szReferencedObject", Type::Text},
                         {"szReferencedColumn", Type::Text}},
                        {index("szObject", {4}, 0x82), index("szReferencedObject", {6}, 0x82),
                         index("szRelationship", {0}, 0x82)}}};
}

constexpr std::array<Object, 8> Objects{
    Object{Tables, Root, "Tables", TypeContainer, Engine, SystemObject},
    Object{Databases, Root, "Databases", TypeContainer, Engine, SystemObject},
    Object{Relationships, Root, "Relationships", TypeContainer, Engine, SystemObject},
    Object{DatabaseObject, Databases, "MSysDb", TypeDatabase, Users, SystemObject},
    Object{2, Tables, "MSysObjects", TypeTable, Engine, SystemObject},
    Object{3, Tables, "MSysACEs", TypeTable, Engine, SystemObject},
    Object{4, Tables, "MSysQueries", TypeTable, Engine, SystemObject},
    Object{5, Tables, "MSysRelationships", TypeTable, Engine, SystemObject}};

constexpr std::array<Permission, 16> Permissions{Permission{2, Users, 0x60000, false},
                                                 Permission{3, Users, 0x60000, false},
                                                 Permission{4, Users, 0x60000, false},
                                                 Permission{5, Users, 0xE0000, false},
                                                 Permission{Tables, Creator, 0xF00FE, true},
                                                 Permission{Tables, Users, 0x60001, false},
                                                 Permission{Relationships, Creator, 0xF00FE, true},
                                                 Permission{Relationships, Users, 0x60001, false},
                                                 Permission{Databases, Users, 0x60000, false},
                                                 Permission{DatabaseObject, Users, 0x6000E, false},
                                                 Permission{DatabaseObject, Admins, 0x0000E, false},
                                                 Permission{4, Admins, 0x00014, false},
                                                 Permission{5, Admins, 0x00014, false},
                                                 Permission{2, Admins, 0x00014, false},
                                                 Permission{Tables, Admins, AllTableRights, true},
                                                 Permission{Relationships, Admins, 0xFFFFF, true}};

std::vector<std::uint8_t> userId(std::uint16_t user) {
    return {static_cast<std::uint8_t>(user >> 8), static_cast<std::uint8_t>(user & 0xFF)};
}

IndexKey parentAndNameKey(std::int32_t parent, std::string_view name) {
    IndexKey key;
    appendKey(key, parent);
    appendKey(key, name);
    return key;
}

IndexKey idKey(std::int32_t id) {
    IndexKey key;
    appendKey(key, id);
    return key;
}

}  // namespace

void makeSystemTables(PageAllocator& allocator) {
    const Layout& layout = allocator.file().layout();
    std::array<std::uint32_t, 4> pages{};
    for (std::uint32_t& page : pages) page = allocator.takePage();
    std::array<SystemTable, 4> tables = systemTables();
    for (std::size_t i = 0; i < tables.size(); ++i)
        // Jet 3 keys are another matter; the files are read without.
        makeTable(allocator, pages[i], true, layOutColumns(tables[i].columns, layout),
                  layout.jet3 ? std::vector<NewIndex>() : tables[i].indexes);
    CatalogWriter catalog(allocator);
    for (const Object& object : Objects) catalog.add(object);
    for (const Permission& permission : Permissions) catalog.add(permission);
}

CatalogWriter::CatalogWriter(PageAllocator& allocator)
    : file_(&allocator.file()),
      objects_(allocator, CatalogPage),
      permissions_(allocator, PermissionsPage) {
    const std::size_t indexes = hasIndexes() ? 1 : 0;
    const bool known = objects_.definition().columns.size() == 17 &&
                       objects_.tail().indexPages.size() == 2 * indexes &&
                       permissions_.definition().columns.size() == 4 &&
                       permissions_.tail().indexPages.size() == indexes;
    if (!known) throw Damaged("il catalogo non ha la forma dovuta");
}

void CatalogWriter::checkTable(std::string_view name) const {
    if (!hasIndexes()) return;
    const std::size_t nameKey = parentAndNameKey(Tables, name).size();
    const auto& objectIndexes = objects_.tail().indexPages;
    const bool fits = IndexLeaf(*file_, objectIndexes[0]).fits(1, nameKey) &&
                      IndexLeaf(*file_, objectIndexes[1]).fits(1, idKey(0).size()) &&
                      IndexLeaf(*file_, permissions_.tail().indexPages[0])
                          .fits(PermissionsPerTable, idKey(0).size());
    if (!fits) throw fileError(ErrorNumber::InvalidCall, file_->path(), "contiene troppe tabelle");
}

void CatalogWriter::addTable(std::string_view name, std::uint32_t definitionPage) {
    const auto id = static_cast<std::int32_t>(definitionPage);
    add(Permission{id, Creator, 0xF00FE, false});
    add(Permission{id, Users, AllTableRights, false});
    add(Permission{id, Admins, AllTableRights, false});
    add(Object{id, Tables, name, TypeTable, Users, 0});
}

void CatalogWriter::add(const Object& object) {
    std::vector<Variant> values(objects_.definition().columns.size(), Variant(Null{}));
    values[0] = object.id;
    values[1] = object.parent;
    values[2] = std::string(object.name);
    values[3] = object.type;
    values[4] = values[5] = Date(CreationDate);
    values[6] = userId(object.owner);
    values[7] = object.flags;
    const RowPointer row = objects_.append(values);
    objects_.flush();
    if (!hasIndexes()) return;
    const auto& indexes = objects_.tail().indexPages;
    IndexLeaf(*file_, indexes[0]).insert(parentAndNameKey(object.parent, object.name), row);
    IndexLeaf(*file_, indexes[1]).insert(idKey(object.id), row);
}

void CatalogWriter::add(const Permission& permission) {
    const std::array<Variant, 4> values{permission.object, userId(permission.user),
                                        permission.rights, permission.inherited};
    const RowPointer row = permissions_.append(values);
    permissions_.flush();
    if (hasIndexes())
        IndexLeaf(*file_, permissions_.tail().indexPages[0]).insert(idKey(permission.object), row);
}

}  // namespace velt::jet
