#include "jetsql/store.h"

namespace jetsql {
namespace {

using jet::Type;

// Whether every value of one type can be stored as the other without a look at it.
bool FitsAsItIs(const ValueType& from, const ValueType& to) {
    switch (to.type) {
        case Type::Boolean:
            return from.type == Type::Boolean;
        case Type::Byte:
            return from.type == Type::Byte;
        case Type::Integer:
            return from.type == Type::Integer || from.type == Type::Byte || from.type == Type::Boolean;
        case Type::Long:
            return IsIntegerType(from.type);
        case Type::Currency:
            return from.type == Type::Currency || IsIntegerType(from.type);
        case Type::Single:
            return from.type == Type::Single || (IsIntegerType(from.type) && from.type != Type::Long);
        case Type::Double:
            return FamilyOf(from.type) == Family::Number;
        case Type::DateTime:
            return from.type == Type::DateTime;
        case Type::Text:
            return from.type == Type::Text && from.size > 0 && from.size <= to.size;
        case Type::Memo:
            return FamilyOf(from.type) == Family::Text;
        case Type::Guid:
            return from.type == Type::Guid;
        case Type::Binary:
            return from.type == Type::Binary && from.size > 0 && from.size <= to.size;
        case Type::LongBinary:
            return FamilyOf(from.type) == Family::Binary;
        case Type::Decimal:
            return IsIntegerType(from.type);
    }
    return false;
}

const char* NumberFunction(Type type) {
    switch (type) {
        case Type::Boolean:
            return "jet_store_bit";
        case Type::Byte:
            return "jet_store_byte";
        case Type::Integer:
            return "jet_store_short";
        case Type::Long:
            return "jet_store_long";
        case Type::Currency:
            return "jet_store_currency";
        case Type::Single:
            return "jet_store_single";
        case Type::DateTime:
            return "jet_store_date";
        default:
            return "jet_store_double";
    }
}

std::string Call(const std::string& function, const std::string& value) {
    return function + '(' + value + ')';
}

std::string Sized(const std::string& function, const std::string& value, int size) {
    return function + '(' + value + ", " + std::to_string(size) + ')';
}

}  // namespace

std::string Stored(const Operand& value, const ValueType& column) {
    const bool neverNull = column.type == Type::Boolean;
    if (!value.type.known) return neverNull ? Call("jet_store_bit", value.sql) : value.sql;
    if (FitsAsItIs(value.type, column) && !(neverNull && value.nullable)) return value.sql;
    switch (column.type) {
        case Type::Text:
            return Sized("jet_store_text", AsText(value), column.size);
        case Type::Memo:
            return AsText(value);
        case Type::Guid:
            return Call("jet_store_guid", value.sql);
        case Type::Binary:
            return Sized("jet_store_binary", value.sql, column.size);
        case Type::LongBinary:
            return Sized("jet_store_binary", value.sql, 0);
        case Type::Decimal:
            return Sized("jet_store_decimal", value.sql, column.scale);
        default:
            return Call(NumberFunction(column.type), value.sql);
    }
}

}  // namespace jetsql
