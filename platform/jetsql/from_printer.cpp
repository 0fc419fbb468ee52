#include "jetsql/from_printer.h"

#include <map>

#include "jetsql/errors.h"
#include "jetsql/names.h"
#include "jetsql/parser.h"
#include "jetsql/select_printer.h"

namespace jetsql {
namespace {

constexpr std::size_t kMostTables = 32;

// The sources that a node of the join tree covers, as a range of the scope.
struct Range {
    std::size_t first, last;
};

class FromPrinter {
  public:
    FromPrinter(Binding& binding, Scope& scope, const std::optional<ExternalDatabase>& external)
        : binding_(binding), scope_(scope), external_(external) {}

    void Add(const Source& source) {
        Bind(source);
        Append(source);
    }
    FromText Take() { return std::move(text_); }

  private:
    void Bind(const Source& source);
    void BindLeaf(const Source& source);
    void BindExternal(const Source& source);
    void BindQuery(const std::string& name, const Select& select);
    void MarkNullable(const Source& source);

    void Append(const Source& source);
    void AppendOuter(const Source& source, const std::string& on, const Expression& condition);
    void AppendLeaf(const Source& source, const char* join);
    std::string Condition(const Source& join);

    bool RefersTo(const Expression& expression, const Source& source) const;
    bool RejectsNulls(const Expression& condition, const Source& source) const;
    bool IsColumnOf(const Expression& expression, const Source& source) const;

    Binding& binding_;
    Scope& scope_;
    const std::optional<ExternalDatabase>& external_;
    std::map<const Source*, Range> ranges_;
    FromText text_;
};

void FromPrinter::Bind(const Source& source) {
    const std::size_t first = scope_.Size();
    if (source.IsJoin()) {
        Bind(*source.left);
        Bind(*source.right);
    } else {
        const std::string& name = source.alias.empty() ? source.name : source.alias;
        if (scope_.FindSource(name) != nullptr) {
            Fail(kSameSourceName, "Cannot join more than one table with the same name ('" + name + "').");
        }
        BindLeaf(source);
        if (scope_.Size() > kMostTables) Fail(kTooComplex, "Query is too complex: too many tables.");
    }
    ranges_[&source] = {first, scope_.Size()};
    if (source.IsJoin() && source.join == JoinKind::Left) MarkNullable(*source.right);
    if (source.IsJoin() && source.join == JoinKind::Right) MarkNullable(*source.left);
}

void FromPrinter::MarkNullable(const Source& source) {
    const Range range = ranges_.at(&source);
    for (std::size_t i = range.first; i < range.last; ++i)
        scope_.At(i).nullable = true;
}

void FromPrinter::BindLeaf(const Source& source) {
    const std::string& name = source.alias.empty() ? source.name : source.alias;
    if (source.select) return BindQuery(name, *source.select);
    if (external_) return BindExternal(source);
    if (const jet::Table* table = binding_.catalogue.FindTable(source.name)) {
        binding_.Touch(*table);
        BoundSource bound = BindTable(binding_, *table, Quoted(table->name), name);
        bound.table = table;
        return scope_.Add(std::move(bound));
    }
    const std::string* query = binding_.catalogue.FindQuery(source.name);
    if (query == nullptr) {
        Fail(kTableNotFound, "Cannot find the input table or query '" + source.name + "'.");
    }
    binding_.OpenQuery(source.name);
    const SelectPtr select = Parser(*query, Parser::Literals::InPlace).ParseQuery();
    BindQuery(name, *select);
    binding_.CloseQuery();
}

void FromPrinter::BindExternal(const Source& source) {
    const auto table = binding_.catalogue.FindExternalTable(source.name, external_->path, external_->connect);
    binding_.result.cacheable = false;
    const std::string& name = source.alias.empty() ? source.name : source.alias;
    scope_.Add(BindTable(binding_, *table.table, table.sqliteName, name));
}

void FromPrinter::BindQuery(const std::string& name, const Select& select) {
    const SelectText text = PrintSelect(binding_, select, nullptr);
    BoundSource bound;
    bound.name = name;
    bound.alias = binding_.NewAlias();
    bound.from = '(' + text.Derived() + ") AS " + bound.alias;
    const std::vector<std::string> names = OutputNames(text.items, '.');
    for (std::size_t i = 0; i < names.size(); ++i) {
        bound.columns.push_back(
            {names[i], bound.alias + ".c" + std::to_string(i + 1), text.items[i].type, false});
    }
    for (std::size_t i = 0; i < text.order.size(); ++i) {
        bound.storageOrder.push_back({bound.alias + ".k" + std::to_string(i + 1), text.order[i].descending});
    }
    scope_.Add(std::move(bound));
}

void FromPrinter::AppendLeaf(const Source& source, const char* join) {
    if (!text_.sql.empty()) text_.sql += join;
    text_.sql += scope_.At(ranges_.at(&source).first).from;
}

std::string FromPrinter::Condition(const Source& join) {
    const Range range = ranges_.at(&join);
    const Scope joined(scope_, range.first, range.last);
    return ExpressionPrinter(binding_, joined, ExpressionPrinter::Clause::On).Condition(*join.on);
}

// A source at a place where no outer join fills it with Nulls: an inner join's condition may stand in WHERE.
void FromPrinter::Append(const Source& source) {
    if (!source.IsJoin()) return AppendLeaf(source, " JOIN ");
    const std::string on = Condition(source);
    if (source.join == JoinKind::Inner) {
        Append(*source.left);
        Append(*source.right);
        if (source.right->IsJoin()) {
            text_.conditions.push_back(on);
        } else {
            text_.sql += " ON " + on;
        }
        text_.on = on;
        return;
    }
    const bool left = source.join == JoinKind::Left;
    Append(left ? *source.left : *source.right);
    AppendOuter(left ? *source.right : *source.left, on, *source.on);
}

// The side of an outer join that Nulls may fill. An outer join there is taken apart where that changes
// nothing: a LEFT JOIN (b LEFT JOIN c ON p) ON q is (a LEFT JOIN b ON q) LEFT JOIN c ON p when p is false for
// a missing b and q does not look at c.
void FromPrinter::AppendOuter(const Source& source, const std::string& on, const Expression& condition) {
    if (!source.IsJoin()) {
        AppendLeaf(source, " LEFT JOIN ");
        text_.sql += " ON " + on;
        return;
    }
    const bool left = source.join == JoinKind::Left;
    const Source& kept = left ? *source.left : *source.right;
    const Source& filled = left ? *source.right : *source.left;
    const bool apart =
        source.join != JoinKind::Inner && RejectsNulls(*source.on, kept) && !RefersTo(condition, filled);
    if (!apart) Fail(kJoinNotSupported, "Join expression not supported.");
    AppendOuter(kept, on, condition);
    AppendOuter(filled, Condition(source), *source.on);
}

bool FromPrinter::IsColumnOf(const Expression& expression, const Source& source) const {
    if (expression.kind != ExpressionKind::Column) return false;
    const Range range = ranges_.at(&source);
    const Scope::Match match = scope_.Find(expression.table, expression.name);
    for (std::size_t i = range.first; i < range.last; ++i) {
        if (&scope_.At(i) == match.source) return true;
    }
    return false;
}

bool FromPrinter::RefersTo(const Expression& expression, const Source& source) const {
    if (expression.select || IsColumnOf(expression, source)) return true;
    for (const ExpressionPtr& operand : expression.operands) {
        if (RefersTo(*operand, source)) return true;
    }
    return false;
}

bool FromPrinter::RejectsNulls(const Expression& condition, const Source& source) const {
    if (condition.kind == ExpressionKind::Compare) {
        return IsColumnOf(*condition.operands[0], source) || IsColumnOf(*condition.operands[1], source);
    }
    if (condition.kind != ExpressionKind::And) return false;
    for (const ExpressionPtr& operand : condition.operands) {
        if (RejectsNulls(*operand, source)) return true;
    }
    return false;
}

}  // namespace

FromText PrintFrom(Binding& binding, Scope& scope, const std::vector<SourcePtr>& from,
                   const std::optional<ExternalDatabase>& external) {
    FromPrinter printer(binding, scope, external);
    for (const SourcePtr& source : from)
        printer.Add(*source);
    return printer.Take();
}

std::string WhereClause(const std::vector<std::string>& conditions, const std::string& where) {
    std::string sql;
    for (const std::string& condition : conditions)
        sql += (sql.empty() ? "(" : " AND (") + condition + ')';
    if (!where.empty()) sql += sql.empty() ? where : " AND (" + where + ')';
    return sql.empty() ? sql : " WHERE " + sql;
}

}  // namespace jetsql
