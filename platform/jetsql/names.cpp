#include "jetsql/names.h"

#include "jetsql/case_folding.h"
#include "jetsql/errors.h"

namespace jetsql {
namespace {

constexpr std::size_t kLongestName = 64;

std::string QuotedWith(std::string_view text, char quote) {
    std::string quoted(1, quote);
    for (char c : text) {
        quoted += c;
        if (c == quote) quoted += c;
    }
    return quoted += quote;
}

std::size_t CharacterCount(std::string_view text) {
    std::size_t count = 0;
    for (char c : text)
        count += (static_cast<unsigned char>(c) & 0xC0u) != 0x80u;
    return count;
}

bool IsNameCharacter(char c) {
    switch (c) {
        case '.':
        case '!':
        case '`':
        case '[':
        case ']':
            return false;
        default:
            return static_cast<unsigned char>(c) >= 0x20;
    }
}

}  // namespace

bool SameName(std::string_view a, std::string_view b) {
    return CompareFolded(a, b) == 0;
}

std::string FoldedName(std::string_view name) {
    return FoldCase(name);
}

void CheckName(std::string_view name) {
    if (name.empty() || name.front() == ' ' || name.back() == ' ')
        Fail(kBadBracketing, "Invalid bracketing of a name.");
    if (name.size() > kLongestName && CharacterCount(name) > kLongestName)
        Fail(kBadName, "'" + std::string(name) + "' is too long for a name.");
    for (char c : name) {
        if (!IsNameCharacter(c))
            Fail(kBadBracketing, "Invalid bracketing of name '" + std::string(name) + "'.");
    }
}

void CheckNewTableName(std::string_view name) {
    constexpr std::string_view kReserved = "sqlite_";
    if (!SameName(name.substr(0, kReserved.size()), kReserved)) return;
    Fail(kBadName, "'" + std::string(name) + "' is not a valid name for a table.");
}

std::string Quoted(std::string_view name) {
    return QuotedWith(name, '"');
}

std::string QuotedText(std::string_view text) {
    return QuotedWith(text, '\'');
}

}  // namespace jetsql
