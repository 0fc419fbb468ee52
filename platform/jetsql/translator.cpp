#include "jetsql/translator.h"

#include "jetsql/errors.h"
#include "jetsql/parser.h"
#include "jetsql/statement_printers.h"

namespace jetsql {
namespace {

// SQLite's own limits.
constexpr std::size_t kMostParameters = 32000;
constexpr std::size_t kLongestText = 900000;

struct Dispatcher {
    Binding& binding;

    void operator()(const SelectPtr& select) const { TranslateSelect(binding, *select); }
    void operator()(const Insert& insert) const { TranslateInsert(binding, insert); }
    void operator()(const Update& update) const { TranslateUpdate(binding, update); }
    void operator()(const Delete& deletion) const { TranslateDelete(binding, deletion); }
    template <typename Definition>
    void operator()(const Definition& definition) const {
        TranslateDefinition(binding, definition);
    }
};

}  // namespace

Translation Translate(std::string_view statement, Catalogue& catalogue) {
    return Translate(Parse(statement), catalogue);
}

Translation Translate(const ParsedStatement& statement, Catalogue& catalogue) {
    Translation result;
    Binding binding(catalogue, result);
    binding.literals = statement.literals;
    if (binding.literals > kMostParameters) Fail(kTooComplex, "Query is too complex.");
    std::visit(Dispatcher{binding}, statement.tree);
    binding.RefuseUnknown();
    if (result.sql.size() > kLongestText) Fail(kTooComplex, "Query is too complex.");
    return result;
}

}  // namespace jetsql
