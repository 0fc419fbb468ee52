#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

namespace bench {

// A prepared statement, as a program over SQLite uses it. Columns are numbered from 0, parameters from 1.
class Query {
  public:
    Query() = default;
    Query(sqlite3* database, const std::string& sql);

    explicit operator bool() const { return handle_ != nullptr; }
    void Bind(int parameter, std::int64_t value) { sqlite3_bind_int64(handle_.get(), parameter, value); }
    bool Step();
    void Reset() { sqlite3_reset(handle_.get()); }

    std::int64_t Number(int column) const { return sqlite3_column_int64(handle_.get(), column); }
    double Real(int column) const { return sqlite3_column_double(handle_.get(), column); }
    bool IsNull(int column) const { return sqlite3_column_type(handle_.get(), column) == SQLITE_NULL; }
    std::string_view Text(int column) const;

  private:
    struct Finalize {
        void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
    };
    std::unique_ptr<sqlite3_stmt, Finalize> handle_;
};

// A connection to a database file that is shared and logged as the library's is. Errors end the program: a
// benchmark of something that does not work says nothing.
class PlainDatabase {
  public:
    explicit PlainDatabase(const std::filesystem::path& file);

    Query Prepare(const std::string& sql) const { return Query(handle_.get(), sql); }
    void Run(const std::string& sql) const;
    // The first column of the first row, 0 without a row.
    std::int64_t Number(const std::string& sql) const;

  private:
    struct Close {
        void operator()(sqlite3* database) const { sqlite3_close_v2(database); }
    };
    std::unique_ptr<sqlite3, Close> handle_;
};

// Makes a file with the tables, rows and indexes of `source`, as a program would declare them that has SQLite
// to itself.
void MakePlainCopy(const std::filesystem::path& source, const std::filesystem::path& target);

}  // namespace bench
