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
// by its address, and compared only once there. A literal of this module needs no comparing.
class FieldNames {
  public:
    static constexpr int kNone = -1;

    FieldNames() = default;
    FieldNames(const FieldNames&) = delete;
    FieldNames& operator=(const FieldNames&) = delete;

    // The position of a column, by its narrow name without case; kNone when there is none, or
    // no name.
    int Find(const std::vector<jetsql::OutputColumn>& columns, const char* name) {
        Slot* const expected = last_->next;
        if (expected->literal != name) [[unlikely]]
            return FindUnexpected(columns, name);
        last_ = expected;
        return expected->column;
    }

  private:
    // Neighbouring slots in which a name may be.
    static constexpr std::size_t kProbes = 4;
    // What no name points to.
    static constexpr char kNowhere = 0;

    struct Slot {
        const char* literal = &kNowhere;  // the address, where what stands there stays the same
        const char* address = &kNowhere;
        const char* spelling = nullptr;
        int column = kNone;
        Slot* next = nullptr;  // the name that was asked for after this one

        bool IsFor(const char* name) const {
            return literal == name || (address == name && std::strcmp(spelling, name) == 0);
        }
    };

    std::size_t SlotOf(const char* name) const {
        const auto address = static_cast<std::uint64_t>(reinterpret_cast<std::uintptr_t>(name));
        return static_cast<std::size_t>((address * 0x9E3779B97F4A7C15U) >> shift_);
    }

    int FindUnexpected(const std::vector<jetsql::OutputColumn>& columns, const char* name);
    int FindAnew(const std::vector<jetsql::OutputColumn>& columns, const char* name);
    int Follow(Slot& slot);
    void MakeSlots(std::size_t columns);
    int FindByText(const std::vector<jetsql::OutputColumn>& columns, std::string_view name);

    std::vector<Slot> slots_;    // a power of two and the probes; empty until the first question
    Slot none_{.next = &none_};  // before the first question
    Slot* last_ = &none_;        // that of the last question
    unsigned shift_ = 0;
    std::unordered_map<std::string, int> byName_;
    std::unordered_set<std::string> spellings_;  // as asked for; bounded, since callers may invent names
};

}  // namespace daoengine
