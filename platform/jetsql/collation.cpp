#include "jetsql/collation.h"

#include <sqlite3.h>

#include "jetsql/case_folding.h"

namespace jetsql {
namespace {

std::string_view WithoutTrailingBlanks(std::string_view text) {
    while (!text.empty() && text.back() == ' ')
        text.remove_suffix(1);
    return text;
}

int Collate(void*, int lengthA, const void* a, int lengthB, const void* b) {
    return CompareTexts({static_cast<const char*>(a), static_cast<std::size_t>(lengthA)},
                        {static_cast<const char*>(b), static_cast<std::size_t>(lengthB)});
}

}  // namespace

int CompareTexts(std::string_view a, std::string_view b) {
    return CompareFolded(WithoutTrailingBlanks(a), WithoutTrailingBlanks(b));
}

int RegisterCollation(sqlite3* connection) {
    return sqlite3_create_collation_v2(connection, "JET", SQLITE_UTF8, nullptr, Collate, nullptr);
}

}  // namespace jetsql
