#include "jetsql/row_list.h"

#include <sqlite3.h>

#include <new>

namespace jetsql {
namespace {

constexpr char kPointerType[] = "row list";
constexpr int kListColumn = 1;

struct ListCursor : sqlite3_vtab_cursor {
    const RowList* rows = nullptr;
    std::size_t at = 0;
};

ListCursor& CursorOf(sqlite3_vtab_cursor* cursor) {
    return *static_cast<ListCursor*>(cursor);
}

int Connect(sqlite3* connection, void*, int, const char* const*, sqlite3_vtab** table, char**) {
    const int code = sqlite3_declare_vtab(connection, "CREATE TABLE list(number INTEGER, list HIDDEN)");
    if (code != SQLITE_OK) return code;
    *table = new (std::nothrow) sqlite3_vtab{};
    return *table != nullptr ? SQLITE_OK : SQLITE_NOMEM;
}

int Disconnect(sqlite3_vtab* table) {
    delete table;
    return SQLITE_OK;
}

// The list has to be given; it is read from its beginning to its end.
int ChoosePlan(sqlite3_vtab*, sqlite3_index_info* plan) {
    for (int i = 0; i < plan->nConstraint; ++i) {
        const auto& constraint = plan->aConstraint[i];
        if (constraint.iColumn != kListColumn || constraint.usable == 0) continue;
        plan->aConstraintUsage[i].argvIndex = 1;
        plan->aConstraintUsage[i].omit = 1;
        return SQLITE_OK;
    }
    return SQLITE_CONSTRAINT;
}

int OpenCursor(sqlite3_vtab*, sqlite3_vtab_cursor** cursor) {
    *cursor = new (std::nothrow) ListCursor{};
    return *cursor != nullptr ? SQLITE_OK : SQLITE_NOMEM;
}

int CloseCursor(sqlite3_vtab_cursor* cursor) {
    delete &CursorOf(cursor);
    return SQLITE_OK;
}

int Start(sqlite3_vtab_cursor* cursor, int, const char*, int, sqlite3_value** values) {
    CursorOf(cursor).rows = static_cast<const RowList*>(sqlite3_value_pointer(values[0], kPointerType));
    CursorOf(cursor).at = 0;
    return SQLITE_OK;
}

int Next(sqlite3_vtab_cursor* cursor) {
    ++CursorOf(cursor).at;
    return SQLITE_OK;
}

int IsAtEnd(sqlite3_vtab_cursor* cursor) {
    const ListCursor& own = CursorOf(cursor);
    return own.rows == nullptr || own.at >= own.rows->size() ? 1 : 0;
}

int GiveColumn(sqlite3_vtab_cursor* cursor, sqlite3_context* context, int column) {
    const ListCursor& own = CursorOf(cursor);
    if (column != kListColumn) sqlite3_result_int64(context, (*own.rows)[own.at]);
    return SQLITE_OK;
}

int GiveRowNumber(sqlite3_vtab_cursor* cursor, sqlite3_int64* number) {
    *number = static_cast<sqlite3_int64>(CursorOf(cursor).at);
    return SQLITE_OK;
}

sqlite3_module MakeModule() {
    sqlite3_module module{};
    module.xConnect = Connect;
    module.xBestIndex = ChoosePlan;
    module.xDisconnect = Disconnect;
    module.xOpen = OpenCursor;
    module.xClose = CloseCursor;
    module.xFilter = Start;
    module.xNext = Next;
    module.xEof = IsAtEnd;
    module.xColumn = GiveColumn;
    module.xRowid = GiveRowNumber;
    return module;
}

}  // namespace

int RegisterRowList(sqlite3* connection) {
    static const sqlite3_module module = MakeModule();
    return sqlite3_create_module_v2(connection, "row.list", &module, nullptr, nullptr);
}

int BindRowList(sqlite3_stmt* statement, int parameter, const RowList& rows) {
    return sqlite3_bind_pointer(statement, parameter, const_cast<RowList*>(&rows), kPointerType, nullptr);
}

}  // namespace jetsql
