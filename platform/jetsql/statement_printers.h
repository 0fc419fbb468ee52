#pragma once

#include "jetsql/ast.h"
#include "jetsql/scope.h"

// One translation per kind of statement; each fills in the binding's result.
namespace jetsql {

void TranslateSelect(Binding& binding, const Select& select);
void TranslateInsert(Binding& binding, const Insert& insert);
void TranslateUpdate(Binding& binding, const Update& update);
void TranslateDelete(Binding& binding, const Delete& deletion);
void TranslateDefinition(Binding& binding, const CreateTable& create);
void TranslateDefinition(Binding& binding, const AddColumn& add);
void TranslateDefinition(Binding& binding, const DropColumn& drop);
void TranslateDefinition(Binding& binding, const DropTable& drop);
void TranslateDefinition(Binding& binding, const CreateIndex& create);
void TranslateDefinition(Binding& binding, const DropIndex& drop);

}  // namespace jetsql
