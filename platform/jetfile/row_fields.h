#pragma once

#include <array>
#include <cstdint>
#include <optional>

#include "jetfile/bytes.h"
#include "jetfile/layout.h"
#include "jetfile/table_definition.h"

namespace jetfile {

// The fields of one stored row: the column count, the fixed area, the variable fields, their offsets, and the
// null mask at the end.
class RowFields {
  public:
    // Throws 3049 when the parts of the row do not fit into it.
    RowFields(const Layout& layout, ByteView row, bool hasVariableColumns);

    // The column's bit in the null mask: not Null, or True for a Yes/No column, which has no bytes.
    bool Marked(const StoredColumn& column) const;

    // The column's bytes; nothing for Null and for a column that is younger than the row.
    std::optional<ByteView> Bytes(const StoredColumn& column) const;

  private:
    void ReadWideOffsets(std::size_t maskAt);
    void ReadNarrowOffsets(std::size_t maskAt);
    ByteView Fixed(const StoredColumn& column) const;

    const Layout& layout_;
    ByteView row_;
    std::size_t columnCount_ = 0;
    ByteView mask_;
    std::size_t variableCount_ = 0;
    std::array<std::uint32_t, 256> offsets_;  // one for each variable field, and the end of the last
};

}  // namespace jetfile
