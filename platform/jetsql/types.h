#pragma once

#include <string>

#include "jet/schema.h"

namespace jetsql {

// Values compare within a family and not across.
enum class Family { Any, Number, Text, Binary };

Family FamilyOf(jet::Type type);

// What is known of a value at translation time.
struct ValueType {
    bool known = false;  // false for Null and for a name nobody knows
    jet::Type type = jet::Type::Memo;
    int size = 0;
    int scale = 0;

    Family OfFamily() const { return known ? FamilyOf(type) : Family::Any; }
};

ValueType TypeOf(const jet::Column& column);

inline ValueType Known(jet::Type type) {
    return {true, type, 0, 0};
}

// Whether two values may be compared (3464 and 3615 otherwise).
bool Comparable(const ValueType& a, const ValueType& b);

// The type of a sum, difference or product.
jet::Type ArithmeticType(jet::Type a, jet::Type b);

bool IsIntegerType(jet::Type type);

}  // namespace jetsql
