#pragma once

#include <functional>

namespace support {

// Runs `work` in a child process that is a copy of this one and waits for it. Returns what `work` returned (0
// to 125), 126 when it threw, or minus the number of the signal that ended the child.
int RunInChild(const std::function<int()>& work);

// A child process that goes on beside the test until it is waited for.
class ChildProcess {
  public:
    explicit ChildProcess(const std::function<int()>& work);
    // Ends the child at once, if it still runs.
    ~ChildProcess();
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    void Kill();
    // As RunInChild returns it.
    int Wait();

  private:
    int id_;
};

}  // namespace support
