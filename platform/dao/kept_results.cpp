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
        slot.stamp = now;
        return {};
    }
    const bool unchanged = slot.stamp == now;
    if (unchanged && slot.literals == literals)
        if (auto rows = RowsOf(slot)) return {std::move(rows), 0};
    slot.stamp = now;
    slot.rows.reset();
    slot.largeRows.reset();
    const std::size_t worth = unchanged ? limits::kLargeResultBytes : limits::kSmallResultBytes;
    return {nullptr, worth > slot.exceeds ? worth : 0};
}

void KeptResults::Keep(const std::vector<jetsql::Literal>& literals, const Stamp& stamp,
                       std::shared_ptr<const RowBlock> rows, LargeResults& largeResults) {
    const std::uint64_t hash = HashOf(literals);
    Slot& slot = SlotOf(hash);
    slot = Slot{};
    slot.hash = hash;
    slot.stamp = stamp;
    slot.literals = literals;
    if (rows->Bytes() <= limits::kSmallResultBytes) {
        slot.rows = std::move(rows);
    } else {
        slot.largeRows = rows;
        largeResults.Add(std::move(rows));
    }
}

void KeptResults::NoteLarger(const std::vector<jetsql::Literal>& literals, std::size_t bytes) {
    const std::uint64_t hash = HashOf(literals);
    Slot& slot = SlotOf(hash);
    if (slot.hash == hash) slot.exceeds = bytes;
}

void LargeResults::Add(std::shared_ptr<const RowBlock> rows) {
    bytes_ += rows->Bytes();
    kept_.push_back(std::move(rows));
    while (bytes_ > limits::kLargeResultsBytes) {
        bytes_ -= kept_.front()->Bytes();
        kept_.pop_front();
    }
}

}  // namespace daoengine
