#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace daoengine {

class EqualityIndex;

// The moment at which something was read: the file as others left it, and the own writes to the tables
// concerned.
struct Stamp {
    std::uint64_t epoch = 0;
    std::uint64_t writes = 0;
    bool operator==(const Stamp&) const = default;
};

// What is known of lookups in one column.
struct ColumnLookups {
    std::string column;
    Stamp stamp;
    int count = 0;  // lookups since the table was last seen changed
    std::shared_ptr<const EqualityIndex> index;
    bool coarse = false;  // the column's values do not tell rows apart
    std::uint64_t lastUse = 0;
};

// What a session remembers of a table beside its definition.
struct TableState {
    std::string name;
    std::string
        rowNumber;  // the name under which SQL reads the number of a row; empty until it was looked for
    std::uint64_t writes = 0;  // own statements that changed its rows or its design
    std::vector<ColumnLookups> lookups;
};

// All tables that the session's statements have named. A state stays where it is as long as the register
// lives.
class TableRegister {
  public:
    TableState& Of(std::string_view table);

    auto begin() { return states_.begin(); }
    auto end() { return states_.end(); }

  private:
    std::unordered_map<std::string, std::unique_ptr<TableState>> states_;
};

}  // namespace daoengine
