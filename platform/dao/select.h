#pragma once

#include <string_view>

#include "dao/cursor.h"

namespace daoengine {

class Session;

// Opens a closed cursor on a SELECT (UTF-8) and fetches its first row. 3219 for a statement of another kind.
void OpenSelect(Session& session, std::string_view sql, Cursor& cursor);

}  // namespace daoengine
