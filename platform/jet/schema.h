#pragma once

#include <string>
#include <vector>

// What every piece of the platform knows about a Jet table: its columns, their types and sizes.
namespace jet {

// The column types of a Jet database.
enum class Type {
    Boolean,     // Yes/No, never Null
    Byte,        // unsigned 8 bits
    Integer,     // signed 16 bits
    Long,        // signed 32 bits
    Currency,    // signed 64 bits, four decimals
    Single,      // 32-bit float
    Double,      // 64-bit float
    DateTime,    // days since 1899-12-30 as a double
    Binary,      // up to `size` bytes
    Text,        // up to `size` characters
    LongBinary,  // OLE object
    Memo,        // text of any length
    Guid,        // "{xxxxxxxx-xxxx-xxxx-xxxx-xxxxxxxxxxxx}"
    Decimal,     // up to 28 digits, `scale` of them decimals
};

// What a Currency of 1 counts where it stands as a whole number.
constexpr double kCurrencyUnit = 10000;

struct Column {
    std::string name;  // UTF-8, in the spelling of the definition
    Type type = Type::Long;
    int size = 0;           // characters of Text, bytes of Binary, else 0
    bool counter = false;   // AutoNumber
    int precision = 0;      // Decimal only
    int scale = 0;          // Decimal only
    bool required = false;  // NOT NULL

    bool operator==(const Column&) const = default;
};

struct IndexColumn {
    std::string name;
    bool descending = false;

    bool operator==(const IndexColumn&) const = default;
};

struct Index {
    std::string name;
    std::vector<IndexColumn> columns;
    bool unique = false;
    bool primary = false;
    bool ignoreNulls = false;
    bool required = false;

    bool operator==(const Index&) const = default;
};

struct Table {
    std::string name;
    std::vector<Column> columns;
    std::vector<Index> indexes;

    bool operator==(const Table&) const = default;
};

}  // namespace jet
