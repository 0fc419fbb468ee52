#pragma once

#include <cstdint>
#include <string_view>

namespace daoengine {

class Session;
struct Draft;
struct Request;

// Runs an action or definition statement, which takes effect whole or not at all. Returns the rows
// written, changed or deleted; 0 for a definition. 3065 for a SELECT.
std::int64_t ExecuteAction(Session& session, Draft draft);

// The half of it that changes tables' design: SELECT INTO and the definition statements.
std::int64_t ExecuteDesignChange(Session& session, const Request& request);

// Has the open recordsets that read a table fetch what they have left, so that a write to it does not touch
// their rows; all of them without a table.
void StoreReaders(Session& session, std::string_view table);
void StoreAllReaders(Session& session);

}  // namespace daoengine
