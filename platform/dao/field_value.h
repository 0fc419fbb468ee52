#pragma once

#include <afxdisp.h>

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <string_view>

#include "dao/row_block.h"
#include "jetsql/translator.h"

namespace daoengine {

// What integers become, by the type of their column: its variant type, and the bits of the value that it has.
struct IntegerForm {
    VARTYPE type;
    std::uint32_t bits;
};
inline constexpr IntegerForm kIntegerForms[] = {
    {VT_BOOL, 0xFFFF}, {VT_UI1, 0xFF}, {VT_I2, 0xFFFF}, {VT_I4, 0xFFFFFFFF}};
static_assert(static_cast<std::size_t>(jet::Type::Boolean) == 0 &&
              static_cast<std::size_t>(jet::Type::Long) == std::size(kIntegerForms) - 1);

void StoreText(std::string_view text, VARIANT& variant);
// A number of another type than integers, or bytes.
void StoreOtherField(FieldView field, const jetsql::OutputColumn& column, VARIANT& variant);

// In the whole width of the union, whose lowest bytes come first: callers read a narrow value in more than
// its own width, which stalls on bytes that were written apart.
inline void StoreInteger(std::int64_t value, std::size_t form, VARIANT& variant) {
    variant.llVal = static_cast<std::int64_t>(static_cast<std::uint64_t>(value) & kIntegerForms[form].bits);
    variant.vt = kIntegerForms[form].type;
}

// Puts a stored value into a cleared variant, by the variant type that belongs to the column's type. All
// bytes of the variant's union are defined afterwards, whatever the width of the value.
inline void StoreField(FieldView field, const jetsql::OutputColumn& column, VARIANT& variant) {
    const auto form = static_cast<std::size_t>(column.type);
    if (field.kind == FieldView::Kind::Integer && form < std::size(kIntegerForms)) [[likely]] {
        const bool isSwitch = column.type == jet::Type::Boolean;
        StoreInteger(isSwitch ? -static_cast<std::int64_t>(field.integer != 0) : field.integer, form,
                     variant);
    } else if (field.kind == FieldView::Kind::Text) {
        StoreText(field.bytes, variant);
    } else if (field.kind == FieldView::Kind::Null) {
        variant.llVal = 0;
        variant.vt = VT_NULL;
    } else {
        StoreOtherField(field, column, variant);
    }
}

}  // namespace daoengine
