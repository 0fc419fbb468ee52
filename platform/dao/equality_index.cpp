#include "dao/equality_index.h"

#include <sqlite3.h>

#include <bit>
#include <string_view>

#include "dao/engine.h"
#include "dao/row_block.h"
#include "dao/table_state.h"
#include "jetsql/case_folding.h"
#include "jetsql/names.h"

namespace daoengine {
namespace {

constexpr std::uint64_t kMultiplier = 0x9E3779B97F4A7C15U;

std::uint64_t Mix(std::uint64_t hash) {
    hash = (hash ^ (hash >> 32U)) * kMultiplier;
    return hash ^ (hash >> 29U);
}

// Numbers that are equal are equal as doubles, whatever their types.
std::uint64_t HashOf(double number) {
    return Mix(std::bit_cast<std::uint64_t>(number == 0 ? 0.0 : number) * kMultiplier);
}

std::uint64_t HashOf(std::int64_t number) {
    return HashOf(static_cast<double>(number));
}

// Texts are equal when they differ in case and trailing blanks alone.
std::uint64_t HashOf(std::string_view text) {
    while (!text.empty() && text.back() == ' ')
        text.remove_suffix(1);
    std::uint64_t hash = kMultiplier;
    while (!text.empty())
        hash = (hash ^ jetsql::FoldCodePoint(jetsql::TakeCodePoint(text))) * kMultiplier;
    return Mix(hash);
}

std::uint64_t HashOf(const jetsql::Literal& literal) {
    if (const auto* text = std::get_if<std::string>(&literal)) return HashOf(std::string_view(*text));
    if (const auto* real = std::get_if<double>(&literal)) return HashOf(*real);
    return HashOf(std::get<std::int64_t>(literal));
}

std::uint64_t HashOf(const FieldView& field) {
    switch (field.kind) {
        case FieldView::Kind::Integer:
            return HashOf(field.integer);
        case FieldView::Kind::Real:
            return HashOf(field.real);
        default:
            return HashOf(field.bytes);
    }
}

std::uint32_t TagOf(std::uint64_t hash) {
    return static_cast<std::uint32_t>(hash);
}

}  // namespace

EqualityIndex::EqualityIndex(Engine& engine, const TableState& table, const std::string& column) {
    Statement scan(engine,
                   "SELECT " + table.rowNumber + ", " + jetsql::Quoted(column) + " FROM " +
                       jetsql::Quoted(table.name) + " NOT INDEXED",
                   Work::Rows);
    std::vector<Entry> entries;
    RunMeter::Account account;
    while (scan.Step(account)) {
        const FieldView field = FieldOf(scan.Handle(), 1);
        if (field.kind == FieldView::Kind::Null) continue;
        entries.push_back({HashOf(field), sqlite3_column_int64(scan.Handle(), 0)});
    }
    Arrange(entries);
}

void EqualityIndex::Arrange(const std::vector<Entry>& entries) {
    const std::size_t buckets = std::bit_ceil(entries.size() + 2);
    shift_ = static_cast<unsigned>(64 - std::countr_zero(buckets));
    starts_.assign(buckets + 1, 0);
    for (const Entry& entry : entries)
        ++starts_[BucketOf(entry.hash) + 1];
    for (std::size_t bucket = 0; bucket < buckets; ++bucket)
        starts_[bucket + 1] += starts_[bucket];
    std::vector<std::uint32_t> next(starts_.begin(), starts_.end() - 1);
    rows_.resize(entries.size());
    tags_.resize(entries.size());
    for (const Entry& entry : entries) {
        const std::uint32_t place = next[BucketOf(entry.hash)]++;
        rows_[place] = entry.row;
        tags_[place] = TagOf(entry.hash);
    }
}

bool EqualityIndex::FindRows(const jetsql::Literal& value, std::size_t most,
                             std::vector<std::int64_t>& rows) const {
    rows.clear();
    const std::uint64_t hash = HashOf(value);
    const std::size_t bucket = BucketOf(hash);
    for (std::uint32_t place = starts_[bucket]; place < starts_[bucket + 1]; ++place) {
        if (tags_[place] != TagOf(hash)) continue;
        if (rows.size() == most) return false;
        rows.push_back(rows_[place]);
    }
    return true;
}

std::size_t EqualityIndex::Bytes() const {
    return rows_.size() * (sizeof(std::int64_t) + sizeof(std::uint32_t)) +
           starts_.size() * sizeof(std::uint32_t);
}

}  // namespace daoengine
