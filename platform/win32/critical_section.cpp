#include <atomic>
#include <mutex>
#include <thread>
#include <vector>

#include "windows.h"

namespace {

// A lock that knows its owner, so that every misuse is harmless. A thread that reads its own id from `owner_`
// owns the lock, whatever others are doing.
class RecursiveLock {
  public:
    void Enter() {
        if (!IsOwn()) {
            mutex_.lock();
            owner_.store(std::this_thread::get_id(), std::memory_order_relaxed);
        }
        ++depth_;
    }

    bool TryEnter() {
        if (!IsOwn()) {
            if (!mutex_.try_lock()) return false;
            owner_.store(std::this_thread::get_id(), std::memory_order_relaxed);
        }
        ++depth_;
        return true;
    }

    void Leave() {
        if (!IsOwn() || --depth_ > 0) return;
        owner_.store({}, std::memory_order_relaxed);
        mutex_.unlock();
    }

    bool IsHeld() const { return owner_.load(std::memory_order_relaxed) != std::thread::id(); }

  private:
    bool IsOwn() const { return owner_.load(std::memory_order_relaxed) == std::this_thread::get_id(); }

    std::mutex mutex_;
    std::atomic<std::thread::id> owner_;
    unsigned depth_ = 0;  // the owner's alone
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
