#include "dao/kept_results.h"

#include <functional>
#include <utility>

#include "dao/limits.h"

namespace daoengine {
namespace {

std::uint64_t HashOf(const std::vector<jetsql::Literal>& literals) {
    std::uint64_t hash = 0x9E3779B97F4A7C15U;
    for (const jetsql::Literal& literal : literals)
        hash = (hash ^ std::hash<jetsql::Literal>()(literal)) * 0x9E3779B97F4A7C15U;
    return hash ^ (hash >> 32U);
}

}  // namespace

KeptResults::Slot& KeptResults::SlotOf(std::uint64_t hash) {
    if (slots_.empty()) slots_.resize(limits::kKeptResultsPerStatement);
    return slots_[static_cast<std::size_t>(hash % slots_.size())];
}

KeptResults::Answer KeptResults::Find(const std::vector<jetsql::Literal>& literals, const Stamp& now) {
    const std::uint64_t hash = HashOf(literals);
    Slot& slot = SlotOf(hash);
    if (slot.hash != hash) {
        slot = Slot{};
        slot.hash = hash;
        return {};
    }
    if (slot.rows && slot.stamp == now && slot.literals == literals) return {slot.rows};
    return {nullptr, !slot.large};
}

void KeptResults::Keep(const std::vector<jetsql::Literal>& literals, const Stamp& stamp,
                       std::shared_ptr<const RowBlock> rows) {
    const std::uint64_t hash = HashOf(literals);
    Slot& slot = SlotOf(hash);
    slot.hash = hash;
    slot.large = rows == nullptr;
    slot.stamp = stamp;
    slot.literals = literals;
    slot.rows = std::move(rows);
}

}  // namespace daoengine
