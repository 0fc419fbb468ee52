#pragma once

#include <list>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "dao/engine.h"
#include "dao/field_names.h"
#include "dao/kept_results.h"
#include "dao/storage_order.h"
#include "dao/table_state.h"
#include "jetsql/translator.h"

namespace daoengine {

// A statement shape, translated once, with all that is kept for it.
struct CachedStatement {
    jetsql::Translation translation;
    std::vector<TableState*> tables;
    std::vector<std::shared_ptr<const jet::Table>> designs;  // of the tables, as they were translated
    bool doubted = false;                                    // a table's design may be another one by now
    StatementPool main;
    std::vector<StatementPool> byRow;  // one per lookup of the translation
    StorageOrder storageOrder;
    FieldNames fields;
    KeptResults results;

    // The writes to the tables it reads, for a stamp.
    std::uint64_t Writes() const;
    bool Reads(const TableState& table) const;
};

// Statement shapes by key; the one used longest ago makes room for a new one.
class StatementCache {
  public:
    explicit StatementCache(std::size_t capacity) : capacity_(capacity) {}

    std::shared_ptr<CachedStatement> Find(const std::string& key);
    void Add(const std::string& key, std::shared_ptr<CachedStatement> statement);
    void Drop(const std::string& key);
    // Doubts the statements that name a table.
    void Doubt(const TableState& table);
    void Clear();
    std::size_t Size() const { return order_.size(); }

  private:
    using Entry = std::pair<std::string, std::shared_ptr<CachedStatement>>;

    std::size_t capacity_;
    std::list<Entry> order_;  // the one used last first
    std::unordered_map<std::string_view, std::list<Entry>::iterator> byKey_;
};

}  // namespace daoengine
