#include <condition_variable>
#include <mutex>
#include <thread>
#include <vector>

#include "windows.h"

namespace {

// A lock that knows its owner, so that every misuse is harmless.
class RecursiveLock {
  public:
    void Enter() {
        std::unique_lock guard(guard_);
        const std::thread::id caller = std::this_thread::get_id();
        if (owner_ != caller) released_.wait(guard, [this] { return depth_ == 0; });
        owner_ = caller;
        ++depth_;
    }

    bool TryEnter() {
        const std::lock_guard guard(guard_);
        const std::thread::id caller = std::this_thread::get_id();
        if (depth_ > 0 && owner_ != caller) return false;
        owner_ = caller;
        ++depth_;
        return true;
    }

    void Leave() {
        const std::lock_guard guard(guard_);
        if (depth_ == 0 || owner_ != std::this_thread::get_id()) return;
        if (--depth_ > 0) return;
        owner_ = {};
        released_.notify_one();
    }

    bool IsHeld() {
        const std::lock_guard guard(guard_);
        return depth_ > 0;
    }

  private:
    std::mutex guard_;
    std::condition_variable released_;
    std::thread::id owner_;
    unsigned depth_ = 0;
};

// Locks that were deleted while held. Other threads may still wait in them, so they live on.
void Abandon(RecursiveLock* lock) {
    static std::mutex& guard = *new std::mutex;
    static std::vector<RecursiveLock*>& abandoned = *new std::vector<RecursiveLock*>;
    const std::lock_guard holder(guard);
    abandoned.push_back(lock);
}

RecursiveLock* LockOf(const CRITICAL_SECTION* section) {
    return static_cast<RecursiveLock*>(section->mutex);
}

}  // namespace

void InitializeCriticalSection(CRITICAL_SECTION* section) {
    section->mutex = new RecursiveLock;
}

void DeleteCriticalSection(CRITICAL_SECTION* section) {
    RecursiveLock* const lock = LockOf(section);
    section->mutex = nullptr;
    if (!lock) return;
    if (lock->IsHeld())
        Abandon(lock);
    else
        delete lock;
}

void EnterCriticalSection(CRITICAL_SECTION* section) {
    if (RecursiveLock* const lock = LockOf(section)) lock->Enter();
}

BOOL TryEnterCriticalSection(CRITICAL_SECTION* section) {
    RecursiveLock* const lock = LockOf(section);
    return lock && lock->TryEnter();
}

void LeaveCriticalSection(CRITICAL_SECTION* section) {
    if (RecursiveLock* const lock = LockOf(section)) lock->Leave();
}
