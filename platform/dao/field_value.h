#pragma once

#include <afxdisp.h>

#include "dao/row_block.h"
#include "jetsql/translator.h"

namespace daoengine {

// Puts a stored value into a cleared variant, by the variant type that belongs to the column's type. All
// bytes of the variant's union are defined afterwards, whatever the width of the value.
void StoreField(const FieldView& field, const jetsql::OutputColumn& column, VARIANT& variant);

}  // namespace daoengine
