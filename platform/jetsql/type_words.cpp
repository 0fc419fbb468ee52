#include "jetsql/type_words.h"

#include "jetsql/names.h"

namespace jetsql {
namespace {

constexpr int kTextLimit = 255;
constexpr int kBinaryLimit = 510;
constexpr int kDecimalDigits = 28;

struct TypeWord {
    std::string_view word;
    jet::Type type;
    int size = 0;
};

constexpr TypeWord kTypeWords[] = {
    {"LONG", jet::Type::Long},
    {"INTEGER", jet::Type::Long},
    {"INT", jet::Type::Long},
    {"INTEGER4", jet::Type::Long},
    {"COUNTER", jet::Type::Long},
    {"AUTOINCREMENT", jet::Type::Long},
    {"SHORT", jet::Type::Integer},
    {"SMALLINT", jet::Type::Integer},
    {"INTEGER2", jet::Type::Integer},
    {"BYTE", jet::Type::Byte},
    {"TINYINT", jet::Type::Byte},
    {"INTEGER1", jet::Type::Byte},
    {"BIT", jet::Type::Boolean},
    {"YESNO", jet::Type::Boolean},
    {"LOGICAL", jet::Type::Boolean},
    {"LOGICAL1", jet::Type::Boolean},
    {"BOOLEAN", jet::Type::Boolean},
    {"SINGLE", jet::Type::Single},
    {"REAL", jet::Type::Single},
    {"FLOAT4", jet::Type::Single},
    {"IEEESINGLE", jet::Type::Single},
    {"DOUBLE", jet::Type::Double},
    {"FLOAT", jet::Type::Double},
    {"FLOAT8", jet::Type::Double},
    {"NUMBER", jet::Type::Double},
    {"IEEEDOUBLE", jet::Type::Double},
    {"CURRENCY", jet::Type::Currency},
    {"MONEY", jet::Type::Currency},
    {"DATETIME", jet::Type::DateTime},
    {"DATE", jet::Type::DateTime},
    {"TIME", jet::Type::DateTime},
    {"TIMESTAMP", jet::Type::DateTime},
    {"TEXT", jet::Type::Memo},
    {"CHAR", jet::Type::Text, 255},
    {"CHARACTER", jet::Type::Text, 255},
    {"VARCHAR", jet::Type::Text, 255},
    {"STRING", jet::Type::Text, 255},
    {"ALPHANUMERIC", jet::Type::Text, 255},
    {"MEMO", jet::Type::Memo},
    {"LONGTEXT", jet::Type::Memo},
    {"LONGCHAR", jet::Type::Memo},
    {"NOTE", jet::Type::Memo},
    {"LONGBINARY", jet::Type::LongBinary},
    {"OLEOBJECT", jet::Type::LongBinary},
    {"GENERAL", jet::Type::LongBinary},
    {"IMAGE", jet::Type::LongBinary},
    {"BINARY", jet::Type::Binary, 510},
    {"VARBINARY", jet::Type::Binary, 510},
    {"GUID", jet::Type::Guid},
    {"UNIQUEIDENTIFIER", jet::Type::Guid},
    {"DECIMAL", jet::Type::Decimal, 18},
    {"NUMERIC", jet::Type::Decimal, 18},
    {"DEC", jet::Type::Decimal, 18},
};

bool IsIn(int value, int low, int high) {
    return value >= low && value <= high;
}

}  // namespace

bool SetTypeByWord(std::string_view word, jet::Column& column) {
    for (const TypeWord& known : kTypeWords) {
        if (!SameName(word, known.word)) continue;
        column.type = known.type;
        column.size = known.type == jet::Type::Decimal ? 0 : known.size;
        column.precision = known.type == jet::Type::Decimal ? known.size : 0;
        column.counter = known.word == "COUNTER" || known.word == "AUTOINCREMENT";
        return true;
    }
    return false;
}

bool SetTypeSize(jet::Column& column, int size, int scale) {
    switch (column.type) {
        case jet::Type::Memo:
        case jet::Type::Text:
            column.type = jet::Type::Text;
            column.size = size;
            return scale == 0 && IsIn(size, 1, kTextLimit);
        case jet::Type::Binary:
            column.size = size;
            return scale == 0 && IsIn(size, 1, kBinaryLimit);
        case jet::Type::Decimal:
            column.precision = size;
            column.scale = scale;
            return IsIn(size, 1, kDecimalDigits) && IsIn(scale, 0, size);
        default:
            return false;
    }
}

}  // namespace jetsql
