#include "dao/lookup_indexes.h"

#include <algorithm>

#include "dao/limits.h"

namespace daoengine {
namespace {

ColumnLookups& LookupsOf(TableState& table, const std::string& column) {
    for (ColumnLookups& lookups : table.lookups)
        if (lookups.column == column) return lookups;
    table.lookups.push_back({});
    table.lookups.back().column = column;
    return table.lookups.back();
}

}  // namespace

std::shared_ptr<const EqualityIndex> LookupIndexes::Find(Engine& engine, TableRegister& tables,
                                                         TableState& table, const std::string& column,
                                                         const Stamp& stamp) {
    ColumnLookups& lookups = LookupsOf(table, column);
    if (lookups.stamp != stamp) {
        lookups = ColumnLookups{};
        lookups.column = column;
        lookups.stamp = stamp;
    }
    if (lookups.coarse) return nullptr;
    lookups.lastUse = ++clock_;
    if (!lookups.index && ++lookups.count >= limits::kLookupsBeforeIndex) {
        lookups.index = std::make_shared<EqualityIndex>(engine, table, column);
        MakeRoom(tables);
    }
    return lookups.index;
}

void LookupIndexes::GiveUp(TableState& table, const std::string& column) {
    ColumnLookups& lookups = LookupsOf(table, column);
    lookups.coarse = true;
    lookups.index.reset();
}

void LookupIndexes::MakeRoom(TableRegister& tables) const {
    std::vector<ColumnLookups*> all;
    std::size_t bytes = 0;
    for (const auto& [name, table] : tables)
        for (ColumnLookups& lookups : table->lookups)
            if (lookups.index) {
                all.push_back(&lookups);
                bytes += lookups.index->Bytes();
            }
    std::sort(all.begin(), all.end(), [](const auto* a, const auto* b) { return a->lastUse < b->lastUse; });
    for (ColumnLookups* lookups : all) {
        if (bytes <= limits::kIndexBytes) return;
        bytes -= lookups->index->Bytes();
        lookups->index.reset();
        lookups->count = 0;
    }
}

}  // namespace daoengine
