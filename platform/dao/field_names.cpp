#include "dao/field_names.h"

#include <bit>
#include <cstdint>

#include "jetsql/names.h"
#include "mfc/narrow.h"

namespace daoengine {

int FieldNames::Find(const std::vector<jetsql::OutputColumn>& columns, const char* name) {
    if (slots_.empty()) {
        const std::size_t slots = std::bit_ceil(4 * columns.size() + 4);
        shift_ = static_cast<unsigned>(64 - std::countr_zero(slots));
        slots_.resize(slots);
    }
    Slot& slot = SlotOf(name);
    if (slot.address == name && slot.spelling == name) return slot.column;
    const int column = FindByText(columns, name);
    if (column != kNone) slot = {name, name, column};
    return column;
}

FieldNames::Slot& FieldNames::SlotOf(const char* name) {
    const auto address = static_cast<std::uint64_t>(reinterpret_cast<std::uintptr_t>(name));
    return slots_[static_cast<std::size_t>((address * 0x9E3779B97F4A7C15U) >> shift_)];
}

int FieldNames::FindByText(const std::vector<jetsql::OutputColumn>& columns, std::string_view name) {
    if (byName_.empty())
        for (std::size_t column = 0; column < columns.size(); ++column)
            byName_.emplace(jetsql::FoldedName(columns[column].name), static_cast<int>(column));
    const auto found = byName_.find(jetsql::FoldedName(Utf8FromNarrow(name)));
    return found == byName_.end() ? kNone : found->second;
}

}  // namespace daoengine
