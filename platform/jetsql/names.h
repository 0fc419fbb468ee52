#pragma once

#include <string>
#include <string_view>

namespace jetsql {

// Names compare without case, whatever the locale.
bool SameName(std::string_view a, std::string_view b);

// A form that is equal for names that are the same.
std::string FoldedName(std::string_view name);

// Refuses what cannot be a name: 3125, or 3126 where the brackets are at fault.
void CheckName(std::string_view name);

// Refuses names that SQLite keeps for itself: 3125.
void CheckNewTableName(std::string_view name);

// A name or a text as SQLite writes it.
std::string Quoted(std::string_view name);
std::string QuotedText(std::string_view text);

}  // namespace jetsql
