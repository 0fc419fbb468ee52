#include "jetsql/scope.h"

#include <algorithm>

#include "jetsql/errors.h"
#include "jetsql/names.h"

namespace jetsql {
namespace {

constexpr std::size_t kDeepestQuery = 8;
constexpr int kMostExpansions = 100;

const BoundColumn* FindColumn(const BoundSource& source, const std::string& name) {
    for (const BoundColumn& column : source.columns) {
        if (SameName(column.name, name)) return &column;
    }
    return nullptr;
}

}  // namespace

Scope::Scope(const Scope& whole, std::size_t first, std::size_t last) : outer_(whole.outer_) {
    sources_.assign(whole.sources_.begin() + static_cast<std::ptrdiff_t>(first),
                    whole.sources_.begin() + static_cast<std::ptrdiff_t>(last));
}

Scope::Match Scope::FindHere(const std::string& table, const std::string& name) const {
    Match match;
    for (const auto& source : sources_) {
        if (!table.empty() && !SameName(source->name, table)) continue;
        const BoundColumn* column = FindColumn(*source, name);
        if (column == nullptr) continue;
        if (match.column != nullptr) {
            Fail(kAmbiguousColumn,
                 "The field '" + name + "' could refer to more than one table of the FROM clause.");
        }
        match = {source.get(), column, false};
    }
    return match;
}

Scope::Match Scope::Find(const std::string& table, const std::string& name) const {
    for (const Scope* scope = this; scope != nullptr; scope = scope->outer_) {
        Match match = scope->FindHere(table, name);
        match.outer = scope != this;
        if (match.column != nullptr) return match;
    }
    return {};
}

const BoundSource* Scope::FindSource(const std::string& name) const {
    for (const auto& source : sources_) {
        if (SameName(source->name, name)) return source.get();
    }
    return nullptr;
}

void Binding::Touch(const jet::Table& table) {
    auto& tables = result.tables;
    if (std::find(tables.begin(), tables.end(), table.name) == tables.end()) tables.push_back(table.name);
}

void Binding::Unknown(const std::string& table, const std::string& name) {
    unknown_.insert(FoldedName(table.empty() ? name : table + '.' + name));
}

void Binding::RefuseUnknown() const {
    if (unknown_.empty()) return;
    std::string names;
    for (const std::string& name : unknown_)
        names += (names.empty() ? "" : ", ") + name;
    Fail(kUnknownParameter,
         "Too few parameters. Expected " + std::to_string(unknown_.size()) + ". (" + names + ")");
}

void Binding::OpenQuery(const std::string& name) {
    std::string folded = FoldedName(name);
    if (std::find(openQueries_.begin(), openQueries_.end(), folded) != openQueries_.end()) {
        Fail(kCircularReference, "Circular reference caused by '" + name + "'.");
    }
    if (openQueries_.size() >= kDeepestQuery || ++expansions_ > kMostExpansions) {
        Fail(kTooComplex, "Query is too complex.");
    }
    openQueries_.push_back(std::move(folded));
}

std::string RowidName(const jet::Table& table) {
    for (const char* name : {"rowid", "_rowid_", "oid"}) {
        const bool hidden =
            std::any_of(table.columns.begin(), table.columns.end(),
                        [&](const jet::Column& column) { return SameName(column.name, name); });
        if (!hidden) return name;
    }
    Fail(kBadName, "The table '" + table.name + "' has columns named like all row numbers.");
}

BoundSource BindTable(Binding& binding, const jet::Table& table, const std::string& printed,
                      const std::string& name) {
    BoundSource source;
    source.name = name;
    source.alias = binding.NewAlias();
    source.from = printed + " AS " + source.alias;
    source.rowid = source.alias + '.' + RowidName(table);
    source.storageOrder.push_back({source.rowid, false});
    source.columns.reserve(table.columns.size());
    for (const jet::Column& column : table.columns) {
        source.columns.push_back(
            {column.name, source.alias + '.' + Quoted(column.name), TypeOf(column), column.counter});
    }
    return source;
}

}  // namespace jetsql
