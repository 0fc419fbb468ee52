#include "dao/field_value.h"

#include <cmath>
#include <cstring>
#include <new>
#include <string>

#include "mfc/narrow.h"

namespace daoengine {
namespace {

std::int64_t IntegerOf(const FieldView& field) {
    return field.kind == FieldView::Kind::Real ? std::llrint(field.real) : field.integer;
}

double RealOf(const FieldView& field) {
    return field.kind == FieldView::Kind::Real ? field.real : static_cast<double>(field.integer);
}

BSTR AllocateText(std::string_view text) {
    BSTR allocated = SysAllocStringByteLen(text.data(), static_cast<UINT>(text.size()));
    if (allocated == nullptr) throw std::bad_alloc();
    return allocated;
}

void StoreBytes(const FieldView& field, VARIANT& variant) {
    SAFEARRAY* array = SafeArrayCreateVector(VT_UI1, 0, static_cast<ULONG>(field.bytes.size()));
    void* data = nullptr;
    if (array == nullptr || SafeArrayAccessData(array, &data) != S_OK) throw std::bad_alloc();
    if (!field.bytes.empty()) std::memcpy(data, field.bytes.data(), field.bytes.size());
    SafeArrayUnaccessData(array);
    variant.parray = array;
    variant.vt = VT_ARRAY | VT_UI1;
}

// The stored number is exact to fifteen digits; it becomes an integer of that many tenths.
void StoreDecimal(const FieldView& field, int scale, VARIANT& variant) {
    const double number = RealOf(field);
    DECIMAL decimal{};
    decimal.scale = static_cast<BYTE>(scale);
    decimal.sign = number < 0 ? 0x80 : 0;
    decimal.Lo64 = static_cast<ULONGLONG>(std::llround(std::abs(number) * std::pow(10.0, scale)));
    variant.decVal = decimal;
    variant.vt = VT_DECIMAL;
}

void StoreNumber(const FieldView& field, jet::Type type, VARIANT& variant) {
    switch (type) {
        case jet::Type::Boolean:
            variant.boolVal = static_cast<VARIANT_BOOL>(IntegerOf(field) != 0 ? -1 : 0);
            variant.vt = VT_BOOL;
            break;
        case jet::Type::Byte:
            variant.bVal = static_cast<BYTE>(IntegerOf(field));
            variant.vt = VT_UI1;
            break;
        case jet::Type::Integer:
            variant.iVal = static_cast<std::int16_t>(IntegerOf(field));
            variant.vt = VT_I2;
            break;
        case jet::Type::Long:
            variant.lVal = static_cast<LONG>(IntegerOf(field));
            variant.vt = VT_I4;
            break;
        case jet::Type::Currency:
            variant.cyVal.int64 = std::llround(RealOf(field) * 10000.0);
            variant.vt = VT_CY;
            break;
        case jet::Type::Single:
            variant.fltVal = static_cast<float>(RealOf(field));
            variant.vt = VT_R4;
            break;
        case jet::Type::DateTime:
            variant.date = RealOf(field);
            variant.vt = VT_DATE;
            break;
        default:
            variant.dblVal = RealOf(field);
            variant.vt = VT_R8;
            break;
    }
}

}  // namespace

void StoreText(std::string_view text, VARIANT& variant) {
    std::string storage;
    variant.llVal = 0;
    variant.bstrVal = AllocateText(NarrowFromUtf8(text, storage));
    variant.vt = VT_BSTR;
}

void StoreOtherField(FieldView field, const jetsql::OutputColumn& column, VARIANT& variant) {
    variant.llVal = 0;
    if (field.kind == FieldView::Kind::Blob)
        StoreBytes(field, variant);
    else if (column.type == jet::Type::Decimal)
        StoreDecimal(field, column.scale, variant);
    else
        StoreNumber(field, column.type, variant);
}

}  // namespace daoengine
