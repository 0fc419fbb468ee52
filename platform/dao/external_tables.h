#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "dao/engine.h"
#include "jet/schema.h"
#include "jetsql/translator.h"

namespace daoengine {

// The tables of other files that one statement reads, copied into a database in memory.
class ExternalTables {
  public:
    // Reads a table; `path` and `connect` are what the statement's IN clause says (UTF-8).
    jetsql::Catalogue::ExternalTable Read(std::string_view table, std::string_view path,
                                          std::string_view connect);

    bool Empty() const { return tables_.empty(); }

    // The database in memory, for a statement that reads nothing else.
    std::shared_ptr<Engine> Take();

    // Puts the tables within reach of another connection's statements; the caller drops them when they have
    // run.
    void CopyInto(Engine& engine) const;
    static void DropFrom(Engine& engine);

  private:
    struct Source {
        std::string path;
        std::string password;
        std::string name;
        jet::Table definition;
    };

    std::vector<std::unique_ptr<Source>> tables_;
    std::shared_ptr<Engine> engine_;
};

}  // namespace daoengine
