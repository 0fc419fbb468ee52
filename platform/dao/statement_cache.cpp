#include "dao/statement_cache.h"

#include <algorithm>
#include <utility>

namespace daoengine {
std::uint64_t CachedStatement::Writes() const {
    std::uint64_t writes = 0;
    for (const TableState* table : tables)
        writes += table->writes;
    return writes;
}

bool CachedStatement::Reads(const TableState& table) const {
    return std::find(tables.begin(), tables.end(), &table) != tables.end();
}

std::shared_ptr<CachedStatement> StatementCache::Find(const std::string& key) {
    const auto found = byKey_.find(key);
    if (found == byKey_.end()) return nullptr;
    if (found->second != order_.begin()) order_.splice(order_.begin(), order_, found->second);
    return found->second->second;
}

void StatementCache::Add(const std::string& key, std::shared_ptr<CachedStatement> statement) {
    order_.emplace_front(key, std::move(statement));
    byKey_.emplace(order_.front().first, order_.begin());
    if (order_.size() <= capacity_) return;
    byKey_.erase(order_.back().first);
    order_.pop_back();
}

void StatementCache::Drop(const std::string& key) {
    const auto found = byKey_.find(key);
    if (found == byKey_.end()) return;
    const auto entry = found->second;
    byKey_.erase(found);
    order_.erase(entry);
}

void StatementCache::Doubt(const TableState& table) {
    for (const Entry& entry : order_)
        if (entry.second->Reads(table)) entry.second->doubted = true;
}

void StatementCache::Clear() {
    byKey_.clear();
    order_.clear();
}

}  // namespace daoengine
