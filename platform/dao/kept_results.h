#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "dao/row_block.h"
#include "dao/table_state.h"
#include "jetsql/translator.h"

namespace daoengine {

// Small results of one statement shape that are asked for again and again, by the literals asked with. A
// result is kept from the second time on, and given out only while its stamp is the current one.
class KeptResults {
  public:
    struct Answer {
        std::shared_ptr<const RowBlock> rows;  // null when nothing valid is kept
        bool worthKeeping = false;             // when they have been read
    };

    // The rows kept for these literals, or whether to keep them.
    Answer Find(const std::vector<jetsql::Literal>& literals, const Stamp& now);

    // Keeps the rows read at a moment. Null: they are too large, do not ask again.
    void Keep(const std::vector<jetsql::Literal>& literals, const Stamp& stamp,
              std::shared_ptr<const RowBlock> rows);

  private:
    struct Slot {
        std::uint64_t hash = 0;
        bool large = false;
        Stamp stamp;
        std::vector<jetsql::Literal> literals;
        std::shared_ptr<const RowBlock> rows;
    };

    Slot& SlotOf(std::uint64_t hash);

    std::vector<Slot> slots_;
};

}  // namespace daoengine
