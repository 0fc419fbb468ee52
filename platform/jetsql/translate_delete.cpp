#include "jetsql/errors.h"
#include "jetsql/expression_printer.h"
#include "jetsql/from_printer.h"
#include "jetsql/names.h"
#include "jetsql/statement_printers.h"

namespace jetsql {
namespace {

// The one table that rows are deleted from: named before FROM, or the only one there is.
const BoundSource& TargetOf(const Delete& deletion, const Scope& scope) {
    const BoundSource* target = scope.Size() == 1 ? &scope.At(0) : nullptr;
    for (const std::string& name : deletion.targets) {
        const BoundSource* named = name.empty() ? target : scope.FindSource(name);
        if (named == nullptr || (target != nullptr && named != target)) target = nullptr;
        if (named == nullptr) break;
        target = named;
    }
    if (target == nullptr) {
        Fail(kDeleteTableMissing, "Specify the table that contains the records to delete.");
    }
    if (target->table == nullptr) Fail(kNotUpdatable, "Operation must use an updatable query.");
    return *target;
}

}  // namespace

void TranslateDelete(Binding& binding, const Delete& deletion) {
    Scope scope(nullptr);
    const FromText from = PrintFrom(binding, scope, deletion.from, std::nullopt);
    const BoundSource& target = TargetOf(deletion, scope);
    std::string where;
    if (deletion.where) {
        where =
            ExpressionPrinter(binding, scope, ExpressionPrinter::Clause::Where).Condition(*deletion.where);
    }
    where = WhereClause(from.conditions, where);
    Translation& result = binding.result;
    result.kind = StatementKind::Delete;
    result.target = target.table->name;
    if (scope.Size() == 1) {
        result.sql = "DELETE FROM " + target.from + where;
        return;
    }
    result.sql = "DELETE FROM " + Quoted(target.table->name) + " WHERE " + RowidName(*target.table) +
                 " IN (SELECT " + target.rowid + " FROM " + from.sql + where + ')';
}

}  // namespace jetsql
