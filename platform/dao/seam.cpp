#include "dao/seam.h"

#include <mutex>

#include "dao/errors.h"

namespace daoengine::seam {
namespace {

struct Plan {
    std::mutex mutex;
    long made = 0;
    long nth = 0;  // 0: fails nothing
    int number = 0;
    bool everAfter = false;
    std::optional<Call> failed;
};

Plan plan;

void Arm(long nth, int number, bool everAfter) {
    const std::lock_guard lock(plan.mutex);
    plan.made = 0;
    plan.nth = nth;
    plan.number = number;
    plan.everAfter = everAfter;
    plan.failed.reset();
    armed.store(true, std::memory_order_relaxed);
}

}  // namespace

void CountCalls() {
    Arm(0, 0, false);
}

void FailCall(long nth, int number, bool everAfter) {
    Arm(nth, number, everAfter);
}

void Disarm() {
    armed.store(false, std::memory_order_relaxed);
}

long CallsMade() {
    const std::lock_guard lock(plan.mutex);
    return plan.made;
}

std::optional<Call> FailedCall() {
    const std::lock_guard lock(plan.mutex);
    return plan.failed;
}

long OpenRecordsets() {
    return openRecordsets.load(std::memory_order_relaxed);
}

long OpenQueries() {
    return openQueries.load(std::memory_order_relaxed);
}

void PassArmed(Call call) {
    const std::lock_guard lock(plan.mutex);
    ++plan.made;
    if (plan.nth == 0 || plan.made < plan.nth || (plan.made > plan.nth && !plan.everAfter)) return;
    if (!plan.failed) plan.failed = call;
    Throw(plan.number);
}

}  // namespace daoengine::seam
