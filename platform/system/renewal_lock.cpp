#include "system/renewal_lock.h"

#include <thread>

#include "system/renewal_lock_attempt.h"

std::unique_ptr<fileio::RenewalLock> fileio::RenewalLock::Acquire(const std::filesystem::path& path,
                                                                  std::chrono::milliseconds patience) {
    constexpr std::chrono::milliseconds kPause{20};
    const auto deadline = std::chrono::steady_clock::now() + patience;
    for (;;) {
        if (auto lock = TryRenewalLock(path)) return lock;
        if (std::chrono::steady_clock::now() >= deadline) return nullptr;
        std::this_thread::sleep_for(kPause);
    }
}
