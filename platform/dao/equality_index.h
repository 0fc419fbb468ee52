#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "jetsql/translator.h"

namespace daoengine {

class Engine;
struct TableState;

// The rows of one column by value, in memory. It answers with every row that holds a value equal to the one
// asked for, in storage order, and perhaps with a few that do not: the caller's statement compares again.
class EqualityIndex {
  public:
    // Reads the whole column.
    EqualityIndex(Engine& engine, const TableState& table, const std::string& column);

    // Puts the rows into `rows`; false when they are more than `most`.
    bool FindRows(const jetsql::Literal& value, std::size_t most, std::vector<std::int64_t>& rows) const;

    std::size_t Bytes() const;

  private:
    struct Entry {
        std::uint64_t hash;
        std::int64_t row;
    };

    void Arrange(const std::vector<Entry>& entries);
    std::size_t BucketOf(std::uint64_t hash) const { return static_cast<std::size_t>(hash >> shift_); }

    unsigned shift_ = 63;
    std::vector<std::uint32_t> starts_;  // where each bucket begins, and the end of the last
    std::vector<std::uint32_t> tags_;    // more bits of each row's hash
    std::vector<std::int64_t> rows_;     // by bucket, then in storage order
};

}  // namespace daoengine
