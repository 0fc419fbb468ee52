#include <sqlite3.h>

#include <cstdio>
#include <cstdlib>
#include <string>

#include "jet/error.h"
#include "jetsql/ddl.h"
#include "jetsql/functions.h"
#include "jetsql/names.h"
#include "jetsql/translator.h"

// Any text: it is refused by an error number, or becomes SQL that SQLite prepares, with as many outputs as
// were promised and no parameter beyond the statement's literals.
namespace {

jet::Column Column(const char* name, jet::Type type, int size = 0) {
    jet::Column column;
    column.name = name;
    column.type = type;
    column.size = size;
    return column;
}

class FuzzDatabase : public jetsql::Catalogue {
  public:
    FuzzDatabase() {
        sqlite3_open(":memory:", &connection_);
        sqlite3_db_config(connection_, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
        jetsql::RegisterFunctions(connection_);
        w_.name = "w";
        w_.columns = {Column("id", jet::Type::Long),        Column("name", jet::Type::Text, 10),
                      Column("value", jet::Type::Integer),  Column("memo", jet::Type::Memo),
                      Column("flag", jet::Type::Boolean),   Column("order", jet::Type::Byte),
                      Column("price", jet::Type::Currency), Column("when", jet::Type::DateTime),
                      Column("single", jet::Type::Single),  Column("double", jet::Type::Double),
                      Column("guid", jet::Type::Guid),      Column("bytes", jet::Type::Binary, 4),
                      Column("digits", jet::Type::Decimal)};
        d_.name = "d";
        d_.columns = {Column("id", jet::Type::Long), Column("name", jet::Type::Text, 20),
                      Column("n", jet::Type::Long)};
        d_.columns[2].counter = true;
        for (const jet::Table* table : {&w_, &d_})
            Execute(jetsql::CreateTableSql(*table));
    }

    const jet::Table* FindTable(std::string_view name) override {
        for (const jet::Table* table : {&w_, &d_}) {
            if (jetsql::SameName(table->name, name)) return table;
        }
        return nullptr;
    }

    const std::string* FindQuery(std::string_view name) override {
        if (jetsql::SameName(name, "q")) return &query_;
        return jetsql::SameName(name, "loop") ? &loop_ : nullptr;
    }

    ExternalTable FindExternalTable(std::string_view name, std::string_view, std::string_view) override {
        const jet::Table* table = FindTable(name);
        if (table == nullptr) throw jet::Error(3078, "no such external table");
        return {table, "main." + jetsql::Quoted(table->name)};
    }

    void Check(const jetsql::Translation& translation, std::size_t literals) {
        if (translation.sql.empty()) return;
        sqlite3_stmt* statement = nullptr;
        if (sqlite3_prepare_v2(connection_, translation.sql.c_str(), -1, &statement, nullptr) != SQLITE_OK) {
            Fail(sqlite3_errmsg(connection_), translation);
        }
        if (static_cast<std::size_t>(sqlite3_bind_parameter_count(statement)) > literals)
            Fail("parameters", translation);
        if (static_cast<std::size_t>(sqlite3_column_count(statement)) != translation.columns.size())
            Fail("columns", translation);
        sqlite3_finalize(statement);
    }

  private:
    void Execute(const std::string& sql) {
        sqlite3_exec(connection_, sql.c_str(), nullptr, nullptr, nullptr);
    }

    [[noreturn]] static void Fail(const char* reason, const jetsql::Translation& translation) {
        std::fprintf(stderr, "%s: %s\n", reason, translation.sql.c_str());
        std::abort();
    }

    sqlite3* connection_ = nullptr;
    jet::Table w_, d_;
    std::string query_ = "SELECT w.id, name, value + 1 AS more FROM w WHERE name > 'a' ORDER BY value DESC";
    std::string loop_ = "SELECT * FROM loop";
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static FuzzDatabase database;
    const std::string_view statement(reinterpret_cast<const char*>(data), size);
    const jetsql::Shape shape = jetsql::ShapeOf(statement);
    try {
        database.Check(jetsql::Translate(statement, database), shape.literals.size());
    } catch (const jet::Error&) {
        // refused
    }
    return 0;
}
