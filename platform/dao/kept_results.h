#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory>
#include <vector>

#include "dao/row_block.h"
#include "dao/table_state.h"
#include "jetsql/translator.h"

namespace daoengine {

// The large results that a session keeps, within one bound of memory: the one kept longest ago goes first.
class LargeResults {
  public:
    void Add(std::shared_ptr<const RowBlock> rows);

  private:
    std::deque<std::shared_ptr<const RowBlock>> kept_;
    std::size_t bytes_ = 0;
};

// Results of one statement shape that are asked for again and again, by the literals asked with. A small
// result is kept from the second time on, a large one when it was asked for twice without a change between. A
// kept result is given out only while its stamp is the current one.
class KeptResults {
  public:
    struct Answer {
        std::shared_ptr<const RowBlock> rows;  // null when nothing valid is kept
        std::size_t worthBytes = 0;            // the largest size that pays to be kept; 0: none
    };

    // The rows kept for these literals, or whether to keep them when they have been read.
    Answer Find(const std::vector<jetsql::Literal>& literals, const Stamp& now);

    // Keeps the rows read at a moment, or notes that they were larger than some size.
    void Keep(const std::vector<jetsql::Literal>& literals, const Stamp& stamp,
              std::shared_ptr<const RowBlock> rows, LargeResults& largeResults);
    void NoteLarger(const std::vector<jetsql::Literal>& literals, std::size_t bytes);

  private:
    struct Slot {
        std::uint64_t hash = 0;
        std::size_t exceeds = 0;  // a size that the result was larger than
        Stamp stamp;              // of the rows, or of the last question
        std::vector<jetsql::Literal> literals;
        std::shared_ptr<const RowBlock> rows;     // of a small result
        std::weak_ptr<const RowBlock> largeRows;  // of another
    };

    Slot& SlotOf(std::uint64_t hash);
    static std::shared_ptr<const RowBlock> RowsOf(const Slot& slot) {
        return slot.rows ? slot.rows : slot.largeRows.lock();
    }

    std::vector<Slot> slots_;
};

}  // namespace daoengine
