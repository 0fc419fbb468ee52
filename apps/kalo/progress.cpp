#include "progress.h"

#include <chrono>
#include <cstdio>

#include "system.h"

namespace cli {

Progress::Progress(std::string doing) : doing_(std::move(doing)) {
    if (ErrorStreamIsTerminal()) watcher_ = std::thread([this] { Watch(); });
}

Progress::~Progress() {
    {
        const std::scoped_lock lock(mutex_);
        done_ = true;
    }
    ended_.notify_all();
    if (watcher_.joinable()) watcher_.join();
}

void Progress::Watch() {
    std::unique_lock lock(mutex_);
    bool begun = false;
    while (!ended_.wait_for(lock, std::chrono::seconds(1), [this] { return done_; })) {
        std::fputs(begun ? "." : (doing_ + " ...").c_str(), stderr);
        begun = true;
    }
    if (begun) std::fputs(" done\n", stderr);
}

}  // namespace cli
