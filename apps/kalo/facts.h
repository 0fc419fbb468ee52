#pragma once

#include "table.h"

namespace cli {

// An answer of many small lists, as rows of a subject, an item and its value.
class Facts {
  public:
    void Add(const char* subject, Cell item, Cell value) {
        table_.rows.push_back({subject, std::move(item), std::move(value)});
    }
    void Append(const Facts& others) {
        table_.rows.insert(table_.rows.end(), others.table_.rows.begin(), others.table_.rows.end());
    }
    const Table& Rows() const { return table_; }

  private:
    Table table_{{{"subject"}, {"item"}, {"value"}}, {}};
};

}  // namespace cli
