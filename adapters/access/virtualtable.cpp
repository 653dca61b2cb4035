// SPDX-License-Identifier: MIT
#include "adapters/access/virtualtable.h"

#include "adapters/access/collation.h"
#include "adapters/access/enclosed.h"
#include "adapters/access/jet/fileerror.h"
#include "adapters/access/queryerror.h"
#include "adapters/access/tablereader.h"

#include <sqlite3.h>

#include <algorithm>
#include <array>
#include <limits>
#include <memory>
#include <new>
#include <span>
#include <string_view>

namespace velt::access {
namespace {

// In the order of FieldType. The engine's own rules make text of the one and numbers of the others.
constexpr std::array<const char*, 9> TypeNames{"",       "BOOLEAN", "BYTE", "SHORT", "LONG",
                                               "SINGLE", "DOUBLE",  "DATE", "TEXT"};

const char* typeName(FieldType type) { return TypeNames[static_cast<std::size_t>(type)]; }

/// How the engine shall read the table: which argument of the scan, if any, bounds the range.
struct Plan {
    Selection selection;
    int lowArgument = -1;
    int highArgument = -1;
};

struct VirtualTable : sqlite3_vtab {
    VirtualTable(QueryContext& c, TableReader& r) : sqlite3_vtab{}, context(c), reader(r) {}

    [[nodiscard]] const std::vector<jet::Column>& columns() const {
        return reader.table().columns();
    }
    [[nodiscard]] const jet::Column& column(int index) const {
        return columns()[static_cast<std::size_t>(index)];
    }

    QueryContext& context;
    TableReader& reader;
    std::vector<Plan> plans;  ///< those that the engine has been offered, by their number
};

struct VirtualCursor : sqlite3_vtab_cursor {
    std::shared_ptr<const TableSnapshot> snapshot;
    std::size_t position = 0;
};

VirtualTable& tableOf(sqlite3_vtab* table) { return *static_cast<VirtualTable*>(table); }
VirtualTable& tableOf(sqlite3_vtab_cursor* cursor) { return tableOf(cursor->pVtab); }
VirtualCursor& cursorOf(sqlite3_vtab_cursor* cursor) {
    return *static_cast<VirtualCursor*>(cursor);
}

std::string declaration(const jet::Table& table) {
    std::string sql = "CREATE TABLE t(";
    for (const jet::Column& column : table.columns()) {
        if (&column != &table.columns().front()) sql += ", ";
        const FieldType type = fieldType(column);
        sql += enclosed(column.name, '"') + " " + typeName(type);
        if (type == FieldType::Text) sql += std::string(" COLLATE ") + TextCollation;
    }
    return sql + ")";
}

int connect(sqlite3* engine, void* context, int /*count*/, const char* const* arguments,
            sqlite3_vtab** table, char** /*error*/) {
    auto& query = *static_cast<QueryContext*>(context);
    const bool done = query.guarded([&] {
        TableReader& reader = query.open(arguments[0]);
        query.declaring = true;
        const int declared = sqlite3_declare_vtab(engine, declaration(reader.table()).c_str());
        query.declaring = false;
        if (declared != SQLITE_OK)
            throw jet::fileError(ErrorNumber::UnknownFileFormat, query.database->path(),
                                 "la tabella \"" + reader.table().name() +
                                     "\" non può essere letta (" + sqlite3_errmsg(engine) + ")");
        *table = new VirtualTable(query, reader);
    });
    return done ? SQLITE_OK : SQLITE_ERROR;
}

int disconnect(sqlite3_vtab* table) {
    delete &tableOf(table);
    return SQLITE_OK;
}

bool isComparison(unsigned char op) {
    switch (op) {
        case SQLITE_INDEX_CONSTRAINT_EQ:
        case SQLITE_INDEX_CONSTRAINT_NE:
        case SQLITE_INDEX_CONSTRAINT_LT:
        case SQLITE_INDEX_CONSTRAINT_LE:
        case SQLITE_INDEX_CONSTRAINT_GT:
        case SQLITE_INDEX_CONSTRAINT_GE: return true;
        default: return false;
    }
}

/// Text compared with a number or date, or the other way round, is an error as it is in Access:
/// the answer would be no rows, or all of them.
void requireSameKind(const jet::Column& column, sqlite3_value* value) {
    const int type = sqlite3_value_type(value);
    if (type == SQLITE_NULL) return;
    const bool textWanted = fieldType(column) == FieldType::Text;
    if (textWanted != (type == SQLITE_TEXT)) throw typeMismatch(column.name);
}

void planRange(const VirtualTable& table, sqlite3_index_info& info, Plan& plan) {
    const std::span constraints(info.aConstraint, static_cast<std::size_t>(info.nConstraint));
    int arguments = 0;
    for (std::size_t i = 0; i < constraints.size(); ++i) {
        const auto& constraint = constraints[i];
        if (constraint.iColumn < 0 || !isComparison(constraint.op)) continue;
        const jet::Column& column = table.column(constraint.iColumn);
        sqlite3_value* value = nullptr;
        if (sqlite3_vtab_rhs_value(&info, static_cast<int>(i), &value) == SQLITE_OK && value)
            requireSameKind(column, value);

        const bool low = constraint.op == SQLITE_INDEX_CONSTRAINT_GE ||
                         constraint.op == SQLITE_INDEX_CONSTRAINT_GT;
        const bool high = constraint.op == SQLITE_INDEX_CONSTRAINT_LE ||
                          constraint.op == SQLITE_INDEX_CONSTRAINT_LT;
        int& argument = low ? plan.lowArgument : plan.highArgument;
        std::optional<Selection::DateRange>& range = plan.selection.range;
        if (constraint.usable == 0 || (!low && !high) || argument >= 0 ||
            fieldType(column) != FieldType::Date || (range && range->column != constraint.iColumn))
            continue;
        if (!range) range.emplace().column = constraint.iColumn;
        if (low) range->lowIncluded = constraint.op == SQLITE_INDEX_CONSTRAINT_GE;
        if (high) range->highIncluded = constraint.op == SQLITE_INDEX_CONSTRAINT_LE;
        argument = arguments++;
        info.aConstraintUsage[i].argvIndex = arguments;
        info.aConstraintUsage[i].omit = 1;
    }
}

void planOrder(sqlite3_index_info& info, Plan& plan) {
    if (info.nOrderBy != 1 || info.aOrderBy[0].iColumn < 0) return;
    const int column = info.aOrderBy[0].iColumn;
    plan.selection.orderColumn = column;
    plan.selection.columns[static_cast<std::size_t>(column)] = true;
    plan.selection.descending = info.aOrderBy[0].desc != 0;
    info.orderByConsumed = 1;
}

int bestIndex(sqlite3_vtab* virtualTable, sqlite3_index_info* info) {
    VirtualTable& self = tableOf(virtualTable);
    const bool done = self.context.guarded([&] {
        Plan plan;
        // The last bit stands for its column and all that follow.
        plan.selection.columns.resize(self.columns().size());
        for (std::size_t i = 0; i < plan.selection.columns.size(); ++i)
            plan.selection.columns[i] = (info->colUsed >> std::min<std::size_t>(i, 63) & 1U) != 0;
        planRange(self, *info, plan);
        planOrder(*info, plan);
        // Every scan reads the whole file; a range only spares work behind the reading. So a range
        // is preferred to none, but never two scans to one.
        const double rows = 1.0 + self.reader.table().statedRows();
        info->estimatedCost = plan.selection.range ? rows * 0.8 : rows;
        info->estimatedRows =
            static_cast<sqlite3_int64>(plan.selection.range ? rows / 4 : rows) + 1;
        info->idxNum = static_cast<int>(self.plans.size());
        self.plans.push_back(std::move(plan));
    });
    return done ? SQLITE_OK : SQLITE_ERROR;
}

int open(sqlite3_vtab*, sqlite3_vtab_cursor** cursor) {
    *cursor = new (std::nothrow) VirtualCursor;
    return *cursor != nullptr ? SQLITE_OK : SQLITE_NOMEM;
}

int close(sqlite3_vtab_cursor* cursor) {
    delete &cursorOf(cursor);
    return SQLITE_OK;
}

/// A bound of the range; null compares with nothing, and so does NaN.
double bound(const jet::Column& column, sqlite3_value* value) {
    requireSameKind(column, value);
    return sqlite3_value_type(value) == SQLITE_NULL ? std::numeric_limits<double>::quiet_NaN()
                                                    : sqlite3_value_double(value);
}

int filter(sqlite3_vtab_cursor* sqliteCursor, int planNumber, const char*, int,
           sqlite3_value** arguments) {
    VirtualTable& table = tableOf(sqliteCursor);
    VirtualCursor& cursor = cursorOf(sqliteCursor);
    const bool done = table.context.guarded([&] {
        const Plan& plan = table.plans[static_cast<std::size_t>(planNumber)];
        Selection selection = plan.selection;
        if (selection.range) {
            Selection::DateRange& range = *selection.range;
            const jet::Column& column = table.column(range.column);
            if (plan.lowArgument >= 0) range.low = bound(column, arguments[plan.lowArgument]);
            if (plan.highArgument >= 0) range.high = bound(column, arguments[plan.highArgument]);
        }
        cursor.snapshot = table.reader.read(selection);
        cursor.position = 0;
    });
    return done ? SQLITE_OK : SQLITE_ERROR;
}

int next(sqlite3_vtab_cursor* cursor) {
    ++cursorOf(cursor).position;
    return SQLITE_OK;
}

int isAtEnd(sqlite3_vtab_cursor* cursor) {
    const VirtualCursor& self = cursorOf(cursor);
    return self.position >= self.snapshot->rowCount() ? 1 : 0;
}

int value(sqlite3_vtab_cursor* cursor, sqlite3_context* result, int index) {
    const VirtualCursor& self = cursorOf(cursor);
    const Column& column = self.snapshot->column(index);
    const std::size_t row = self.snapshot->row(self.position);
    if (column.isNull(row)) return SQLITE_OK;  // null unless something else is said
    switch (column.type()) {
        case FieldType::Text: {
            const std::string_view text = column.text(row);
            sqlite3_result_text64(result, text.data(), text.size(), SQLITE_STATIC, SQLITE_UTF8);
            break;
        }
        case FieldType::Boolean:
        case FieldType::Byte:
        case FieldType::Integer:
        case FieldType::Long:
            sqlite3_result_int64(result, static_cast<sqlite3_int64>(column.number(row)));
            break;
        default: sqlite3_result_double(result, column.number(row)); break;
    }
    return SQLITE_OK;
}

int rowId(sqlite3_vtab_cursor* cursor, sqlite3_int64* id) {
    const VirtualCursor& self = cursorOf(cursor);
    *id = static_cast<sqlite3_int64>(self.snapshot->row(self.position));
    return SQLITE_OK;
}

/// Without a function to create tables, the module is a table of its own name.
constexpr sqlite3_module module() {
    sqlite3_module methods{};
    methods.iVersion = 1;
    methods.xConnect = connect;
    methods.xBestIndex = bestIndex;
    methods.xDisconnect = disconnect;
    methods.xOpen = open;
    methods.xClose = close;
    methods.xFilter = filter;
    methods.xNext = next;
    methods.xEof = isAtEnd;
    methods.xColumn = value;
    methods.xRowid = rowId;
    return methods;
}

constexpr sqlite3_module Module = module();

}  // namespace

void registerTable(sqlite3* engine, const std::string& name, QueryContext& context) {
    if (sqlite3_create_module(engine, name.c_str(), &Module, &context) != SQLITE_OK)
        throw RuntimeError(queryerror::OutOfMemory, sqlite3_errmsg(engine));
}

FieldType declaredType(const char* declaration) {
    if (declaration == nullptr) return FieldType::Unknown;
    for (std::size_t i = 0; i < TypeNames.size(); ++i)
        if (std::string_view(declaration) == TypeNames[i]) return static_cast<FieldType>(i);
    return FieldType::Unknown;
}

}  // namespace velt::access
