#pragma once

#include "dao/engine.h"
#include "jet/schema.h"
#include "jetfile/reader.h"

namespace daoengine {

// Fills a table with rows as the reader of Jet files gives them, each value in the form in which the engine
// stores values of its column's type.
class TableWriter {
  public:
    // `sqlName` is the table's name as SQL writes it.
    TableWriter(Engine& engine, const jet::Table& table, const std::string& sqlName);

    // A row that is too short ends in Nulls.
    void Insert(const jetfile::Row& row);

  private:
    Engine& engine_;
    const jet::Table& table_;
    Statement insert_;
};

}  // namespace daoengine
