#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "jetsql/translator.h"

namespace daoengine {

// The columns of a result by name. Callers ask with the same few character arrays over and over, so that a
// name is first looked for by its address, and compared only once there.
class FieldNames {
  public:
    static constexpr int kNone = -1;

    // The position of a column, by its narrow name without case; kNone when there is none.
    int Find(const std::vector<jetsql::OutputColumn>& columns, const char* name);

  private:
    struct Slot {
        const char* address = nullptr;
        std::string spelling;
        int column = kNone;
    };

    Slot& SlotOf(const char* name);
    int FindByText(const std::vector<jetsql::OutputColumn>& columns, std::string_view name);

    std::vector<Slot> slots_;  // a power of two
    unsigned shift_ = 0;
    std::unordered_map<std::string, int> byName_;
};

}  // namespace daoengine
