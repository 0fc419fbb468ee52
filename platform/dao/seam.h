#pragma once

#include <atomic>
#include <optional>

// The one point that every request to the engine passes on its way in, where a test can make a request fail.
namespace daoengine::seam {

enum class Call {
    OpenDatabase,
    CountTables,
    OpenRecordset,
    Move,
    ReadField,
    CountRecords,
    CreateQuery,
    Execute,
};

// Lets the calls from now on be counted, from 1, and fails none of them.
void CountCalls();
// Counts, and makes the `nth` call from now on fail with a DAO error number; with `everAfter`, all later ones
// too.
void FailCall(long nth, int number, bool everAfter);
// Back to work without counting or failing.
void Disarm();

// Calls since the last CountCalls or FailCall.
long CallsMade();
// The first call that was made to fail, if any.
std::optional<Call> FailedCall();

// Objects open at this moment, in all databases of the process.
long OpenRecordsets();
long OpenQueries();

// --- For the engine itself
// -------------------------------------------------------------------------------------

inline std::atomic<bool> armed{false};
inline std::atomic<long> openRecordsets{0};
inline std::atomic<long> openQueries{0};

// Counts a call; throws the jet::Error that a test asked for.
void PassArmed(Call call);

inline void Pass(Call call) {
    if (armed.load(std::memory_order_relaxed)) [[unlikely]]
        PassArmed(call);
}

}  // namespace daoengine::seam
