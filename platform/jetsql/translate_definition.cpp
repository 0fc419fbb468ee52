#include <algorithm>
#include <set>

#include "jetsql/errors.h"
#include "jetsql/names.h"
#include "jetsql/statement_printers.h"

namespace jetsql {
namespace {

const jet::Table& ExistingTable(Binding& binding, const std::string& name) {
    const jet::Table* table = binding.catalogue.FindTable(name);
    if (table == nullptr) Fail(kNoSuchTable, "Table '" + name + "' does not exist.");
    binding.Touch(*table);
    return *table;
}

const jet::Column* FindColumn(const jet::Table& table, const std::string& name) {
    for (const jet::Column& column : table.columns) {
        if (SameName(column.name, name)) return &column;
    }
    return nullptr;
}

const jet::Index* FindIndex(const jet::Table& table, const std::string& name) {
    for (const jet::Index& index : table.indexes) {
        if (SameName(index.name, name)) return &index;
    }
    return nullptr;
}

bool Covers(const jet::Index& index, const std::string& column) {
    return std::any_of(index.columns.begin(), index.columns.end(),
                       [&](const jet::IndexColumn& part) { return SameName(part.name, column); });
}

// Gives the index's columns the table's spelling.
void ResolveIndex(const jet::Table& table, jet::Index& index) {
    for (jet::IndexColumn& part : index.columns) {
        const jet::Column* column = FindColumn(table, part.name);
        if (column == nullptr)
            Fail(kBadIndexField, "Invalid field '" + part.name + "' in an index definition.");
        part.name = column->name;
    }
}

Translation& Define(Binding& binding, StatementKind kind, const std::string& target) {
    Translation& result = binding.result;
    result.kind = kind;
    result.target = target;
    result.cacheable = false;
    return result;
}

}  // namespace

void TranslateDefinition(Binding& binding, const CreateTable& create) {
    Translation& result = Define(binding, StatementKind::CreateTable, create.table.name);
    CheckNewTableName(create.table.name);
    if (binding.catalogue.FindTable(create.table.name) != nullptr) {
        Fail(kTableExists, "Table '" + create.table.name + "' already exists.");
    }
    if (create.table.columns.empty()) Fail(kCreateTableSyntax, "A table needs a field.");
    if (create.table.columns.size() > kMostFields) Fail(kTooManyFields, "Too many fields defined.");
    std::set<std::string> names;
    for (const jet::Column& column : create.table.columns) {
        if (!names.insert(FoldedName(column.name)).second) {
            Fail(kDuplicateField, "The field '" + column.name + "' is defined more than once.");
        }
    }
    result.definition = create.table;
    names.clear();
    for (jet::Index& index : result.definition.indexes) {
        ResolveIndex(result.definition, index);
        if (!names.insert(FoldedName(index.name)).second)
            Fail(kIndexExists, "Index '" + index.name + "' exists.");
    }
}

void TranslateDefinition(Binding& binding, const AddColumn& add) {
    const jet::Table& table = ExistingTable(binding, add.table);
    if (FindColumn(table, add.column.name) != nullptr) {
        Fail(kFieldExists, "Field '" + add.column.name + "' already exists in table '" + table.name + "'.");
    }
    if (table.columns.size() >= kMostFields) Fail(kTooManyFields, "Too many fields defined.");
    Translation& result = Define(binding, StatementKind::AddColumn, table.name);
    result.definition.name = table.name;
    result.definition.columns.push_back(add.column);
}

void TranslateDefinition(Binding& binding, const DropColumn& drop) {
    const jet::Table& table = ExistingTable(binding, drop.table);
    const jet::Column* column = FindColumn(table, drop.column);
    if (column == nullptr)
        Fail(kNoSuchField, "Table '" + table.name + "' has no field '" + drop.column + "'.");
    for (const jet::Index& index : table.indexes) {
        if (Covers(index, column->name))
            Fail(kColumnIndexed, "Cannot delete a field that is part of an index.");
    }
    Define(binding, StatementKind::DropColumn, table.name).dropped = column->name;
}

void TranslateDefinition(Binding& binding, const DropTable& drop) {
    const jet::Table& table = ExistingTable(binding, drop.table);
    Define(binding, StatementKind::DropTable, table.name);
}

void TranslateDefinition(Binding& binding, const CreateIndex& create) {
    const jet::Table& table = ExistingTable(binding, create.table);
    if (FindIndex(table, create.index.name) != nullptr) {
        Fail(kIndexExists,
             "Table '" + table.name + "' already has an index named '" + create.index.name + "'.");
    }
    Translation& result = Define(binding, StatementKind::CreateIndex, table.name);
    result.definition.name = table.name;
    result.definition.indexes.push_back(create.index);
    ResolveIndex(table, result.definition.indexes.back());
}

void TranslateDefinition(Binding& binding, const DropIndex& drop) {
    const jet::Table& table = ExistingTable(binding, drop.table);
    const jet::Index* index = FindIndex(table, drop.index);
    if (index == nullptr)
        Fail(kIndexNotFound, "Table '" + table.name + "' has no index '" + drop.index + "'.");
    Define(binding, StatementKind::DropIndex, table.name).dropped = index->name;
}

}  // namespace jetsql
