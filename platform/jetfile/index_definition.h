#pragma once

#include <string>
#include <vector>

#include "jet/schema.h"
#include "jetfile/bytes.h"
#include "jetfile/layout.h"
#include "jetfile/table_definition.h"

namespace jetfile {

// The three lists by which a table definition describes its indexes. A real index is what is stored; a
// logical one gives it a name and a purpose, and several may share a real one.
struct IndexLists {
    ByteView real;
    ByteView logical;
    const std::vector<std::string>& logicalNames;
};

// The indexes of a table, without those that only serve a relation.
std::vector<jet::Index> ReadIndexes(const Layout& layout, const IndexLists& lists,
                                    const std::vector<StoredColumn>& columns);

}  // namespace jetfile
