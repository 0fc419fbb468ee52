#pragma once

#include <cstddef>
#include <cstdint>

// The bounds that keep one statement, one session and one damaged database from taking the process down. A
// statement that passes one of them fails with 3035.
namespace daoengine::limits {

// How long a statement waits for another process's write before it gives up (3218, or 3211 for a change of
// design).
constexpr int kBusyMilliseconds = 5000;

// Statements kept translated and prepared.
constexpr std::size_t kCachedStatements = 512;

// Virtual machine steps that the rows of a recordset and an action may take: one or two seconds, and some
// five. A scan of 200,000 rows takes five million; an action may look through such a table for a hundred
// rows.
constexpr std::int64_t kSelectSteps = 100'000'000;
constexpr std::int64_t kActionSteps = 300'000'000;
// Steps between two looks at the counters.
constexpr int kStepsPerLook = 20'000;
// Memory that the engine may take on while a statement runs (sorting, temporary tables).
constexpr std::int64_t kStatementMemory = 256LL * 1024 * 1024;

// Memory for the rows of one recordset that had to be fetched ahead.
constexpr std::size_t kStoredBytes = 128U * 1024 * 1024;

// A result that is asked for again and is no larger than this stays in memory while its tables are unchanged.
constexpr std::size_t kKeptResultBytes = 4 * 1024;
constexpr std::size_t kKeptResultsPerStatement = 16;

// Keys by which a session sorts row numbers itself, and how many numbers it then keeps for each statement.
constexpr std::size_t kSortedKeys = 250'000;
constexpr std::size_t kKeptRowNumbers = 4096;

// Lookups of a column by value before the column is indexed in memory, rows that a lookup fetches one by one,
// and the memory for all indexes of a session.
constexpr int kLookupsBeforeIndex = 2;
constexpr std::size_t kLookupRows = 256;
constexpr std::size_t kIndexBytes = 64U * 1024 * 1024;

// Pages in the write-ahead log after which a commit writes them into the file.
constexpr int kLogPages = 1000;

// A database file grows to the size of the largest Jet file.
constexpr std::int64_t kFileBytes = 2LL * 1024 * 1024 * 1024;

}  // namespace daoengine::limits
