#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <variant>
#include <vector>

#include "jet/schema.h"

// A read-only reader of Jet 3 and Jet 4 database files. Every length, offset and page number in a file is
// untrusted: damage gives jet::Error (3343, 3049 …) in bounded time and memory.
namespace jetfile {

using Blob = std::vector<std::uint8_t>;

// A value as it comes out of a file. monostate is Null; integers serve Boolean (0 or -1), Byte, Integer, Long
// and Currency (in ten-thousandths); doubles serve Single, Double and DateTime; strings (UTF-8) serve Text,
// Memo, Guid and Decimal (plain decimal digits); Blob serves Binary and LongBinary.
using Value = std::variant<std::monostate, std::int64_t, double, std::string, Blob>;
using Row = std::vector<Value>;

// A stored SELECT query, rebuilt as Jet SQL text. A query that cannot be rebuilt (an action query, a
// crosstab, damaged rows) has an empty text and the reason in `problem`.
struct StoredQuery {
    std::string name;
    std::string sql;
    std::string problem;
};

// What the first bytes of a file say it is.
enum class FileKind { Jet3, Jet4, Other };

// Looks at the header only; a missing file gives jet::Error 3024, one that cannot be opened 3051.
FileKind ProbeFile(const std::string& path);

class ByteSource;

// Reads one file. Not for several threads at once.
class Reader {
  public:
    // Opens shared and read-only, checks header and password. Throws jet::Error: 3024 missing file, 3051 not
    // readable, 3343 no Jet 3/4 file (or an encoded one), 3031 wrong password, 3049 damaged.
    // `path` is in the process's narrow encoding (UTF-8, or the ANSI code page on Windows); `password` in
    // UTF-8. A file without a password opens with any.
    Reader(const std::string& path, const std::string& password);

    // The same over bytes from elsewhere, such as an image in memory.
    Reader(std::unique_ptr<ByteSource> source, const std::string& password);
    ~Reader();
    Reader(const Reader&) = delete;
    Reader& operator=(const Reader&) = delete;

    // User tables (no system, temporary or linked ones) with columns and indexes, in catalogue order. Columns
    // of types that are no jet::Type (they occur in files of later programs) are left out.
    const std::vector<jet::Table>& Tables() const;

    // The same table's rows in storage order. `visit` returns false to stop. A missing name gives 3078 (names
    // compare without case).
    void ReadRows(const std::string& table, const std::function<bool(Row&&)>& visit) const;

    const std::vector<StoredQuery>& Queries() const;

    FileKind Kind() const;

  private:
    class Impl;
    std::unique_ptr<Impl> impl_;
};

}  // namespace jetfile
