#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "jet/schema.h"
#include "jetfile/database_file.h"

namespace jetfile {

// How a column is stored.
struct StoredColumn {
    jet::Column column;
    bool readable = false;            // its type is one of jet::Type
    bool fixed = false;               // stored in the fixed area of a row
    std::uint16_t number = 0;         // its bit in a row's null mask; deleted columns leave gaps
    std::uint16_t variableIndex = 0;  // its place in a row's table of variable fields
    std::uint16_t fixedOffset = 0;    // its place in a row's fixed area
    std::uint16_t length = 0;         // bytes
    std::uint16_t codePage = 0;       // of text in a Jet 3 file
};

// What a table definition says.
struct TableDefinition {
    std::uint32_t page = 0;
    std::uint32_t ownedPages = 0;     // pointer to the usage map
    bool hasVariableColumns = false;  // counting deleted ones
    std::vector<StoredColumn> columns;
    std::vector<jet::Index> indexes;

    // The index of a column, by its name. Throws 3049 when there is none.
    std::size_t ColumnIndex(const std::string& name) const;
};

// Reads the definition that begins on `page`. Its pages are charged to `budget`.
TableDefinition ReadTableDefinition(const DatabaseFile& file, std::uint32_t page, ReadBudget& budget);

}  // namespace jetfile
