#pragma once

#include <afxdao.h>

#include <optional>
#include <string>

#include "table.h"

// Asks the database itself, by SQL. Statements are in UTF-8.
namespace cli {

// A database that is opened and closed with the object. Throws EngineFailure where it cannot be opened.
class OpenDatabase {
  public:
    OpenDatabase(const std::string& file, const std::string& password);
    CDaoDatabase& operator*() { return database_; }

  private:
    CDaoDatabase database_;
};

// Runs a statement that selects nothing and returns the number of rows that it touched; nothing for a SELECT,
// which is not run. Throws EngineFailure.
std::optional<long> Execute(CDaoDatabase& database, const std::string& sql);

// The rows of a SELECT. Throws EngineFailure.
Table Select(CDaoDatabase& database, const std::string& sql);

}  // namespace cli
