#include "dao_rows.h"

#include <fmt/format.h>

#include "dao_value.h"
#include "failure.h"
#include "status_words.h"
#include "text.h"

namespace cli {
namespace {

constexpr LONG kIsSelect = 3065;

// The words of the engine, or the program's own where it gives none.
std::string WordsOf(const CDaoException& exception) {
    const std::string words = Utf8FromSystem(LPCTSTR(exception.m_pErrorInfo->m_strDescription));
    return words.empty() ? DaoWords(static_cast<int>(exception.m_pErrorInfo->m_lErrorCode)) : words;
}

// Runs work on the engine, whose exceptions come as pointers to be deleted.
template <class Work>
auto Guarded(Work work) {
    try {
        return work();
    } catch (CDaoException* exception) {
        const std::string text =
            fmt::format("error {}: {}", exception->m_pErrorInfo->m_lErrorCode, WordsOf(*exception));
        exception->Delete();
        throw EngineFailure(text);
    }
}

void ReadRows(CDaoRecordset& recordset, Table& table) {
    const short columns = recordset.GetFieldCount();
    for (short column = 0; column < columns; ++column)
        table.columns.push_back({Utf8FromSystem(LPCTSTR(recordset.GetFieldName(column)))});
    COleVariant value;
    for (; !recordset.IsEOF(); recordset.MoveNext()) {
        std::vector<Cell>& row = table.rows.emplace_back();
        for (short column = 0; column < columns; ++column) {
            recordset.GetFieldValue(column, value);
            row.push_back(CellOf(value));
        }
    }
}

}  // namespace

OpenDatabase::OpenDatabase(const std::string& file, const std::string& password) {
    const std::string connect = password.empty() ? std::string() : ";PWD=" + password;
    Guarded([&] { database_.Open(file.c_str(), FALSE, FALSE, connect.c_str()); });
}

std::optional<long> Execute(CDaoDatabase& database, const std::string& sql) {
    return Guarded([&]() -> std::optional<long> {
        CDaoQueryDef query(&database);
        try {
            query.Create(nullptr, SystemFromUtf8(sql).c_str());
            query.Execute(dbSQLPassThrough);
            return query.GetRecordsAffected();
        } catch (CDaoException* exception) {
            if (exception->m_pErrorInfo->m_lErrorCode != kIsSelect) throw;
            exception->Delete();
            return std::nullopt;
        }
    });
}

Table Select(CDaoDatabase& database, const std::string& sql) {
    return Guarded([&] {
        Table table;
        CDaoRecordset recordset(&database);
        recordset.Open(dbOpenDynaset, SystemFromUtf8(sql).c_str());
        ReadRows(recordset, table);
        return table;
    });
}

}  // namespace cli
