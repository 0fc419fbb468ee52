#pragma once

#include <functional>
#include <vector>

#include "jetfile/data_page.h"
#include "jetfile/reader.h"
#include "jetfile/row_fields.h"
#include "jetfile/table_definition.h"

namespace jetfile {

// One pass over the rows of a table, in storage order.
class TableRows {
  public:
    using Visit = std::function<bool(Row&&)>;

    // Rows hold the fields of `columns`, which are some or all of the table's.
    TableRows(const DatabaseFile& file, const TableDefinition& table,
              const std::vector<StoredColumn>& columns);

    // `visit` returns false to stop.
    void ForEach(const Visit& visit);

  private:
    bool VisitPage(const DataPage& page, const Visit& visit);
    Row DecodeMoved(ByteView pointer);
    Row Decode(ByteView bytes);
    Value Field(const StoredColumn& column, const RowFields& fields);

    const DatabaseFile& file_;
    const TableDefinition& table_;
    const std::vector<StoredColumn>& columns_;
    ReadBudget budget_;
};

}  // namespace jetfile
