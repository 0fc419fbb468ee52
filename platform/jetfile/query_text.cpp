#include "jetfile/query_text.h"

#include <algorithm>
#include <map>

#include "jet/error.h"
#include "jetfile/bytes.h"
#include "jetfile/query_joins.h"

namespace jetfile {
namespace {

enum Attribute : std::int64_t {
    kKind = 1,
    kParameter = 2,
    kOptions = 3,
    kExternalDatabase = 4,
    kInputTable = 5,
    kOutputColumn = 6,
    kJoin = 7,
    kWhere = 8,
    kGroupBy = 9,
    kHaving = 10,
    kOrderBy = 11,
};

enum Option : std::int64_t {
    kAllColumns = 0x01,
    kDistinct = 0x02,
    kOwnerAccess = 0x04,
    kDistinctRow = 0x08,
    kTop = 0x10,
    kPercent = 0x20,
};

constexpr std::int64_t kSelectKind = 1;
constexpr std::uint32_t kKindFlags = 0xF0;

using Rows = std::vector<QueryRow>;

// The rows of one query by what they mean.
class QueryRows {
  public:
    explicit QueryRows(const Rows& rows) {
        for (const QueryRow& row : rows)
            byAttribute_[row.attribute].push_back(row);
    }
    const Rows& Of(Attribute attribute) const {
        static const Rows kNone;
        const auto found = byAttribute_.find(attribute);
        return found == byAttribute_.end() ? kNone : found->second;
    }
    const QueryRow* First(Attribute attribute) const {
        const Rows& rows = Of(attribute);
        return rows.empty() ? nullptr : &rows.front();
    }

  private:
    std::map<std::int64_t, Rows> byAttribute_;
};

const char* KindName(std::int64_t kind) {
    switch (kind) {
        case 2:
            return "a make-table query";
        case 3:
            return "an append query";
        case 4:
            return "an update query";
        case 5:
            return "a delete query";
        case 6:
            return "a crosstab query";
        case 7:
            return "a data-definition query";
        case 8:
            return "a pass-through query";
        case 9:
            return "a union query";
        default:
            return "a query of an unknown kind";
    }
}

// The catalogue numbers the kinds in another order than the query's own row.
std::int64_t KindOfFlags(std::uint32_t catalogueFlags) {
    constexpr std::int64_t kKinds[] = {1, 6, 5, 4, 3, 2, 7, 8, 9};
    const std::uint32_t index = (catalogueFlags & kKindFlags) >> 4;
    return index < std::size(kKinds) ? kKinds[index] : 0;
}

void CheckKind(std::uint32_t catalogueFlags, const QueryRows& rows) {
    std::int64_t kind = KindOfFlags(catalogueFlags);
    if (const QueryRow* row = rows.First(kKind); kind == kSelectKind && row != nullptr) kind = row->flag;
    if (kind != kSelectKind)
        throw jet::Error(3064, std::string("This is ") + KindName(kind) + ", not a SELECT.");
}

template <typename Format>
std::string List(const Rows& rows, Format format) {
    std::string list;
    for (const QueryRow& row : rows)
        list += (list.empty() ? "" : ", ") + format(row);
    return list;
}

std::string ParameterType(std::int64_t type) {
    constexpr const char* kTypes[] = {"Value",    "Bit",        "Byte",       "Short",    "Long",
                                      "Currency", "IEEESingle", "IEEEDouble", "DateTime", "Binary",
                                      "Text",     "LongBinary", "Text"};
    constexpr std::int64_t kGuid = 15;
    if (type == kGuid) return "Guid";
    if (type < 0 || type >= static_cast<std::int64_t>(std::size(kTypes))) ThrowDamaged("a query parameter");
    return kTypes[type];
}

std::string Parameters(const QueryRows& rows) {
    const Rows& parameters = rows.Of(kParameter);
    if (parameters.empty()) return {};
    return "PARAMETERS " +
           List(
               parameters,
               [](const QueryRow& row) { return BracketedName(row.name1) + " " + ParameterType(row.flag); }) +
           "; ";
}

std::string Restriction(const QueryRow* options) {
    if (options == nullptr) return {};
    std::string text;
    if ((options->flag & kDistinct) != 0) text += "DISTINCT ";
    if ((options->flag & kDistinctRow) != 0) text += "DISTINCTROW ";
    if ((options->flag & kTop) != 0) text += "TOP " + options->name1 + " ";
    if ((options->flag & kPercent) != 0) text += "PERCENT ";
    return text;
}

std::string OutputColumns(const QueryRows& rows) {
    std::string list = List(rows.Of(kOutputColumn), [](const QueryRow& row) {
        return row.expression + (row.name1.empty() ? "" : " AS " + BracketedName(row.name1));
    });
    const QueryRow* options = rows.First(kOptions);
    if (options != nullptr && (options->flag & kAllColumns) != 0) list += list.empty() ? "*" : ", *";
    if (list.empty()) ThrowDamaged("a query without columns");
    return list;
}

std::string WithoutTerminator(std::string statement) {
    statement.erase(statement.find_last_not_of("; \r\n\t") + 1);
    return statement;
}

QueryInput Input(const QueryRow& row) {
    const std::string source =
        row.expression.empty() ? BracketedName(row.name1) : "(" + WithoutTerminator(row.expression) + ")";
    const std::string name = row.name2.empty() ? row.name1 : row.name2;
    if (name.empty()) ThrowDamaged("a query over a table without a name");
    return {name, source + (row.name2.empty() ? "" : " AS " + BracketedName(row.name2))};
}

std::string From(const QueryRows& rows) {
    std::vector<QueryInput> inputs;
    for (const QueryRow& row : rows.Of(kInputTable))
        inputs.push_back(Input(row));
    if (inputs.empty()) return {};
    std::vector<QueryJoin> joins;
    for (const QueryRow& row : rows.Of(kJoin))
        joins.push_back({row.name1, row.name2, row.expression, row.flag});
    std::string text = " FROM " + FromText(inputs, joins);
    if (const QueryRow* database = rows.First(kExternalDatabase)) {
        text += " IN '" + database->name1 + "'";
        if (!database->expression.empty()) text += " [" + database->expression + "]";
    }
    return text;
}

std::string Clause(const char* word, const std::string& text) {
    return text.empty() ? std::string() : word + text;
}

std::string Expressions(const QueryRows& rows, Attribute attribute) {
    return List(rows.Of(attribute), [](const QueryRow& row) {
        return row.expression + (row.name1 == "D" || row.name1 == "d" ? " DESC" : "");
    });
}

}  // namespace

std::string SelectText(std::uint32_t catalogueFlags, const Rows& queryRows) {
    const QueryRows rows(queryRows);
    CheckKind(catalogueFlags, rows);
    const QueryRow* options = rows.First(kOptions);
    const QueryRow* where = rows.First(kWhere);
    const QueryRow* having = rows.First(kHaving);
    const bool ownerAccess = options != nullptr && (options->flag & kOwnerAccess) != 0;
    return Parameters(rows) + "SELECT " + Restriction(options) + OutputColumns(rows) + From(rows) +
           Clause(" WHERE ", where != nullptr ? where->expression : "") +
           Clause(" GROUP BY ", Expressions(rows, kGroupBy)) +
           Clause(" HAVING ", having != nullptr ? having->expression : "") +
           Clause(" ORDER BY ", Expressions(rows, kOrderBy)) +
           (ownerAccess ? " WITH OWNERACCESS OPTION;" : ";");
}

}  // namespace jetfile
