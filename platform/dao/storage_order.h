#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "dao/engine.h"
#include "dao/table_state.h"
#include "jetsql/row_list.h"
#include "jetsql/translator.h"

namespace daoengine {

// How the rows of a table that a statement shape sorts are stored: in that order already, as those of a table
// that was made in order are, or which row numbers give it. Looking at the keys costs a tenth of reading the
// rows. What was seen holds while the table is unchanged; of the numbers, a few are kept.
class StorageOrder {
  public:
    // Neither where the keys are no numbers, or too many.
    struct Answer {
        bool asStored = false;
        std::shared_ptr<const jetsql::RowList> rows;
    };

    Answer Find(Engine& engine, const jetsql::StoredOrder& asked,
                const std::vector<jetsql::Literal>& literals, const Stamp& now);

    // The statements that read the rows as they are stored, and by a list.
    StatementPool& Readers() { return readers_; }
    StatementPool& ListReaders() { return listReaders_; }

  private:
    Answer Look(Engine& engine, const jetsql::StoredOrder& asked,
                const std::vector<jetsql::Literal>& literals);

    StatementPool readers_;
    StatementPool listReaders_;
    StatementPool keyReaders_;
    std::optional<Stamp> seen_;
    std::vector<jetsql::Literal> literals_;  // with which it was looked
    Answer answer_;
};

}  // namespace daoengine
