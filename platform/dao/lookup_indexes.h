#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "dao/equality_index.h"
#include "dao/table_state.h"

namespace daoengine {

// The indexes that lookups by equality have brought about, within one bound of memory. An index serves the
// moment of its stamp and is made anew, when lookups go on, after the table has changed.
class LookupIndexes {
  public:
    // The index of a column, or null as long as making one does not pay.
    std::shared_ptr<const EqualityIndex> Find(Engine& engine, TableRegister& tables, TableState& table,
                                              const std::string& column, const Stamp& stamp);

    // Gives an index up whose values do not tell rows apart.
    void GiveUp(TableState& table, const std::string& column);

  private:
    void MakeRoom(TableRegister& tables) const;

    std::uint64_t clock_ = 0;
};

}  // namespace daoengine
