#include "dao/field_names.h"

#include <algorithm>
#include <bit>

#include "jetsql/names.h"
#include "mfc/narrow.h"
#include "system/constant_data.h"

namespace daoengine {

namespace {

constexpr std::size_t kMostSpellings = 1024;

}  // namespace

int FieldNames::FindUnexpected(const std::vector<jetsql::OutputColumn>& columns, const char* name) {
    if (name == nullptr) return kNone;
    if (last_->next->IsFor(name)) return Follow(*last_->next);
    if (slots_.empty()) return FindAnew(columns, name);
    Slot* slot = &slots_[SlotOf(name)];
    for (const Slot* const end = slot + kProbes; slot != end; ++slot)
        if (slot->IsFor(name)) return Follow(*slot);
    return FindAnew(columns, name);
}

int FieldNames::Follow(Slot& slot) {
    last_ = last_->next = &slot;
    return slot.column;
}

int FieldNames::FindAnew(const std::vector<jetsql::OutputColumn>& columns, const char* name) {
    const int column = FindByText(columns, name);
    if (column == kNone) return kNone;
    if (slots_.empty() || spellings_.size() > kMostSpellings) MakeSlots(columns.size());
    const auto first = slots_.begin() + static_cast<std::ptrdiff_t>(SlotOf(name));
    const auto taken = [name](const Slot& slot) { return slot.address != &kNowhere && slot.address != name; };
    const auto free = std::find_if_not(first, first + kProbes, taken);
    Slot& slot = *(free == first + kProbes ? first : free);
    slot = {IsConstantData(name) ? name : &kNowhere, name, spellings_.insert(name).first->c_str(), column,
            &none_};
    return Follow(slot);
}

void FieldNames::MakeSlots(std::size_t columns) {
    const std::size_t slots = std::bit_ceil(4 * columns + 4);
    shift_ = static_cast<unsigned>(64 - std::countr_zero(slots));
    slots_.assign(slots + kProbes, Slot());
    last_ = none_.next = &none_;
    spellings_.clear();
}

int FieldNames::FindByText(const std::vector<jetsql::OutputColumn>& columns, std::string_view name) {
    if (byName_.empty())
        for (std::size_t column = 0; column < columns.size(); ++column)
            byName_.emplace(jetsql::FoldedName(columns[column].name), static_cast<int>(column));
    const auto found = byName_.find(jetsql::FoldedName(Utf8FromNarrow(name)));
    return found == byName_.end() ? kNone : found->second;
}

}  // namespace daoengine
