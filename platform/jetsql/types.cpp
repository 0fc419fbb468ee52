#include "jetsql/types.h"

namespace jetsql {

Family FamilyOf(jet::Type type) {
    switch (type) {
        case jet::Type::Text:
        case jet::Type::Memo:
        case jet::Type::Guid:
            return Family::Text;
        case jet::Type::Binary:
        case jet::Type::LongBinary:
            return Family::Binary;
        default:
            return Family::Number;
    }
}

ValueType TypeOf(const jet::Column& column) {
    return {true, column.type, column.size, column.scale};
}

bool Comparable(const ValueType& a, const ValueType& b) {
    return a.OfFamily() == Family::Any || b.OfFamily() == Family::Any || a.OfFamily() == b.OfFamily();
}

bool IsIntegerType(jet::Type type) {
    return type == jet::Type::Boolean || type == jet::Type::Byte || type == jet::Type::Integer ||
           type == jet::Type::Long;
}

jet::Type ArithmeticType(jet::Type a, jet::Type b) {
    if (a == jet::Type::DateTime || b == jet::Type::DateTime)
        return a == b ? jet::Type::Double : jet::Type::DateTime;
    if (IsIntegerType(a) && IsIntegerType(b)) return jet::Type::Long;
    const bool currency = a == jet::Type::Currency || b == jet::Type::Currency;
    const bool others =
        (a == jet::Type::Currency || IsIntegerType(a)) && (b == jet::Type::Currency || IsIntegerType(b));
    return currency && others ? jet::Type::Currency : jet::Type::Double;
}

}  // namespace jetsql
