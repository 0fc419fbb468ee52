#include "jetfile/catalogue.h"

#include <set>

#include "jetfile/text.h"

namespace jetfile {
namespace {

constexpr std::uint32_t kObjectsDefinitionPage = 2;
constexpr std::uint32_t kPageOfId = 0x00FFFFFF;
constexpr std::int64_t kLocalTable = 1;
constexpr std::int64_t kQuery = 5;
constexpr std::uint32_t kSystemFlags = 0x80000002;
const std::string kQueryRowsTable = "MSysQueries";

class CatalogueBuilder {
  public:
    // Fields: Id, Name, Type, Flags.
    void Add(const Row& row) {
        const std::string name = TextOf(row[1]);
        const std::int64_t type = NumberOf(row[2]);
        const auto flags = static_cast<std::uint32_t>(NumberOf(row[3]));
        if (type == kLocalTable && SameName(name, kQueryRowsTable)) catalogue_.queryRowsPage = PageOf(row[0]);
        // Names with a tilde belong to objects that are deleted or live inside forms.
        if (name.starts_with('~') || (flags & kSystemFlags) != 0) return;
        if (type == kLocalTable) AddTable(name, PageOf(row[0]));
        if (type == kQuery) catalogue_.queries.push_back({name, NumberOf(row[0]), flags});
    }
    Catalogue Take() { return std::move(catalogue_); }

  private:
    static std::uint32_t PageOf(const Value& id) {
        return static_cast<std::uint32_t>(NumberOf(id)) & kPageOfId;
    }

    void AddTable(const std::string& name, std::uint32_t page) {
        const bool fresh = names_.insert(FoldedName(name)).second && pages_.insert(page).second;
        if (!fresh || name.empty()) ThrowDamaged("two tables in one");
        catalogue_.tables.push_back({name, page});
    }

    Catalogue catalogue_;
    std::set<std::string> names_;
    std::set<std::uint32_t> pages_;
};

}  // namespace

Catalogue ReadCatalogue(const DatabaseFile& file) {
    CatalogueBuilder builder;
    ForEachSystemRow(file, kObjectsDefinitionPage, {"Id", "Name", "Type", "Flags"},
                     [&](const Row& row) { builder.Add(row); });
    return builder.Take();
}

void ForEachSystemRow(const DatabaseFile& file, std::uint32_t definitionPage,
                      const std::vector<std::string>& columns, const std::function<void(const Row&)>& visit) {
    ReadBudget budget(file.pages.FileSize());
    const TableDefinition table = ReadTableDefinition(file, definitionPage, budget);
    std::vector<StoredColumn> selected;
    selected.reserve(columns.size());
    for (const std::string& column : columns)
        selected.push_back(table.columns[table.ColumnIndex(column)]);
    TableRows(file, table, selected).ForEach([&](Row&& row) {
        visit(row);
        return true;
    });
}

std::int64_t NumberOf(const Value& value) {
    const auto* number = std::get_if<std::int64_t>(&value);
    return number != nullptr ? *number : 0;
}

std::string TextOf(const Value& value) {
    const auto* text = std::get_if<std::string>(&value);
    return text != nullptr ? *text : std::string();
}

}  // namespace jetfile
