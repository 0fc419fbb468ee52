#include "jetfile/reader.h"

#include <algorithm>

#include "jet/error.h"
#include "jetfile/catalogue.h"
#include "jetfile/stored_queries.h"
#include "jetfile/table_rows.h"
#include "jetfile/text.h"

namespace jetfile {

class Reader::Impl {
  public:
    Impl(std::unique_ptr<ByteSource> source, const std::string& password)
        : file_(std::move(source), password) {
        const Catalogue catalogue = ReadCatalogue(file_);
        ReadBudget budget(file_.pages.FileSize());
        for (const CataloguedTable& entry : catalogue.tables) {
            definitions_.push_back(ReadTableDefinition(file_, entry.definitionPage, budget));
            tables_.push_back(Describe(entry.name, definitions_.back()));
        }
        queries_ = ReadStoredQueries(file_, catalogue);
    }

    const std::vector<jet::Table>& Tables() const { return tables_; }
    const std::vector<StoredQuery>& Queries() const { return queries_; }
    FileKind Kind() const { return file_.header.kind; }

    void ReadRows(const std::string& name, const TableRows::Visit& visit) const {
        const auto table = std::find_if(tables_.begin(), tables_.end(), [&](const jet::Table& candidate) {
            return SameName(candidate.name, name);
        });
        if (table == tables_.end())
            throw jet::Error(3078, "Cannot find the input table or query '" + name + "'.");
        const TableDefinition& definition = definitions_[static_cast<std::size_t>(table - tables_.begin())];
        TableRows(file_, definition, definition.columns).ForEach(visit);
    }

  private:
    static jet::Table Describe(const std::string& name, const TableDefinition& definition) {
        jet::Table table{.name = name, .columns = {}, .indexes = definition.indexes};
        for (const StoredColumn& stored : definition.columns)
            table.columns.push_back(stored.column);
        return table;
    }

    DatabaseFile file_;
    std::vector<TableDefinition> definitions_;
    std::vector<jet::Table> tables_;
    std::vector<StoredQuery> queries_;
};

FileKind ProbeFile(const std::string& path) {
    FileSource source(path);
    return ProbeSource(source);
}

Reader::Reader(const std::string& path, const std::string& password)
    : Reader(std::make_unique<FileSource>(path), password) {}

Reader::Reader(std::unique_ptr<ByteSource> source, const std::string& password)
    : impl_(std::make_unique<Impl>(std::move(source), password)) {}

Reader::~Reader() = default;

const std::vector<jet::Table>& Reader::Tables() const {
    return impl_->Tables();
}

const std::vector<StoredQuery>& Reader::Queries() const {
    return impl_->Queries();
}

FileKind Reader::Kind() const {
    return impl_->Kind();
}

void Reader::ReadRows(const std::string& table, const std::function<bool(Row&&)>& visit) const {
    impl_->ReadRows(table, visit);
}

}  // namespace jetfile
