#include "dao/run_meter.h"

#include <sqlite3.h>

namespace daoengine {

void RunMeter::Attach(sqlite3* engine) {
    sqlite3_progress_handler(engine, limits::kStepsPerLook, OnProgress, this);
}

int RunMeter::OnProgress(void* self) {
    const RunMeter& meter = *static_cast<RunMeter*>(self);
    if (meter.account_ == nullptr) return 0;
    meter.account_->steps += limits::kStepsPerLook;
    if (meter.account_->memoryAtStart < 0) meter.account_->memoryAtStart = sqlite3_memory_used();
    return meter.Exceeded() ? 1 : 0;
}

bool RunMeter::Exceeded() const {
    return account_->steps > account_->mostSteps ||
           sqlite3_memory_used() - account_->memoryAtStart > limits::kStatementMemory;
}

}  // namespace daoengine
