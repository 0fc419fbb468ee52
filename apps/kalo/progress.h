#pragma once

#include <condition_variable>
#include <mutex>
#include <string>
#include <thread>

namespace cli {

// Says on standard error what is being done, once it takes longer than a second and a person is watching.
class Progress {
  public:
    explicit Progress(std::string doing);
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

  private:
    void Watch();

    std::string doing_;
    bool done_ = false;
    std::mutex mutex_;
    std::condition_variable ended_;
    std::thread watcher_;
};

}  // namespace cli
