#include "support/database_dump.h"

#include <functional>
#include <sstream>
#include <vector>

#include "dao/connection.h"
#include "dao/database_file.h"
#include "dao/engine.h"
#include "dao/table_definition.h"

namespace {

struct ValuePrinter {
    std::ostream& out;

    void operator()(std::monostate) const { out << "Null"; }
    void operator()(std::int64_t value) const { out << value; }
    void operator()(double value) const { out << std::hexfloat << value; }
    void operator()(const std::string& value) const { out << '"' << value << '"'; }
    void operator()(const jetfile::Blob& value) const {
        out << 'x';
        for (const unsigned byte : value)
            out << byte << ' ';
    }
};

using RowVisitor = std::function<void(const jetfile::Row&)>;

// A table as text. `read` hands over the rows and returns the definition.
std::string PrintTable(const std::function<jet::Table(const RowVisitor&)>& read) {
    std::ostringstream rows, columns;
    const jet::Table table = read([&](const jetfile::Row& row) {
        for (const jetfile::Value& value : row) {
            std::visit(ValuePrinter{rows}, value);
            rows << '|';
        }
        rows << '\n';
    });
    for (const jet::Column& column : table.columns)
        columns << column.name << ':' << static_cast<int>(column.type) << '(' << column.size << ','
                << column.precision << ',' << column.scale << ')' << (column.counter ? "+" : "") << '|';
    return columns.str() + '\n' + rows.str();
}

std::map<std::string, std::string> DumpJetFile(const std::string& path, const std::string& password) {
    std::map<std::string, std::string> tables;
    const jetfile::Reader reader(path, password);
    for (const jet::Table& table : reader.Tables())
        tables[table.name] = PrintTable([&](const RowVisitor& visit) {
            reader.ReadRows(table.name, [&](const jetfile::Row& row) {
                visit(row);
                return true;
            });
            return table;
        });
    return tables;
}

std::vector<std::string> EngineTableNames(const std::string& path) {
    daoengine::Engine engine(daoengine::OpenConnection(path, daoengine::Access::ReadOnly).release(),
                             daoengine::Engine::Ownership::Owned);
    return daoengine::UserTableNames(engine);
}

}  // namespace

std::map<std::string, std::string> support::DumpDatabase(const std::string& path,
                                                         const std::string& password) {
    if (jetfile::ProbeFile(path) != jetfile::FileKind::Other) return DumpJetFile(path, password);
    std::map<std::string, std::string> tables;
    for (const std::string& name : EngineTableNames(path))
        tables[name] = PrintTable([&](const RowVisitor& visit) {
            return daoengine::ReadExternalTable(path, password, name, visit);
        });
    return tables;
}
