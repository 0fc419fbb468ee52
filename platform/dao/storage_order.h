#pragma once

#include <optional>
#include <vector>

#include "dao/engine.h"
#include "dao/table_state.h"
#include "jetsql/translator.h"

namespace daoengine {

// Whether the rows that a statement shape sorts are stored in that order already, as those of a table that
// was made in order are. Looking at the keys costs a tenth of sorting the rows, and what was seen holds while
// the table is unchanged.
class StorageOrder {
  public:
    // Says no also where the keys are no numbers.
    bool IsTheOneOf(Engine& engine, const jetsql::StoredOrder& asked,
                    const std::vector<jetsql::Literal>& literals, const Stamp& now);

    // The statements that read the rows as they are stored.
    StatementPool& Readers() { return readers_; }

  private:
    bool Look(Engine& engine, const jetsql::StoredOrder& asked, const std::vector<jetsql::Literal>& literals);

    StatementPool readers_;
    StatementPool keyReaders_;
    std::optional<Stamp> seen_;
    std::vector<jetsql::Literal> literals_;  // with which it was looked
    bool same_ = false;
};

}  // namespace daoengine
