#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "jetsql/translator.h"

namespace daoengine {

// The columns of a result by name. Callers ask with the same few character arrays over and over, in the same
// order for each row, so that a name is first expected to be the one that followed last time, then looked for
// by its address, and compared only once there.
class FieldNames {
  public:
    static constexpr int kNone = -1;

    // The position of a column, by its narrow name without case; kNone when there is none.
    int Find(const std::vector<jetsql::OutputColumn>& columns, const char* name) {
        if (last_ != nullptr) [[likely]] {
            if (last_->next != nullptr && last_->next->IsFor(name)) return (last_ = last_->next)->column;
            Slot* slot = &slots_[SlotOf(name)];
            for (const Slot* end = slot + kProbes; slot != end; ++slot)
                if (slot->IsFor(name)) return (last_ = last_->next = slot)->column;
        }
        return FindAnew(columns, name);
    }

  private:
    // Neighbouring slots in which a name may be.
    static constexpr std::size_t kProbes = 4;

    struct Slot {
        const char* address = nullptr;
        const char* spelling = nullptr;
        int column = kNone;
        Slot* next = nullptr;  // the name that was asked for after this one

        bool IsFor(const char* name) const { return address == name && std::strcmp(spelling, name) == 0; }
    };

    std::size_t SlotOf(const char* name) const {
        const auto address = static_cast<std::uint64_t>(reinterpret_cast<std::uintptr_t>(name));
        return static_cast<std::size_t>((address * 0x9E3779B97F4A7C15U) >> shift_);
    }

    int FindAnew(const std::vector<jetsql::OutputColumn>& columns, const char* name);
    void MakeSlots(std::size_t columns);
    int FindByText(const std::vector<jetsql::OutputColumn>& columns, std::string_view name);

    std::vector<Slot> slots_;  // a power of two and the probes; empty until the first question
    Slot* last_ = nullptr;     // that of the last question
    unsigned shift_ = 0;
    std::unordered_map<std::string, int> byName_;
    std::unordered_set<std::string> spellings_;  // as asked for; bounded, since callers may invent names
};

}  // namespace daoengine
