#include "support/child_process_posix.h"

#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <exception>

namespace {

constexpr int kThrew = 126;

int Guarded(const std::function<int()>& work) {
    try {
        return work();
    } catch (const std::exception& exception) {
        std::fprintf(stderr, "child process: %s\n", exception.what());
        return kThrew;
    }
}

}  // namespace

support::ChildProcess::ChildProcess(const std::function<int()>& work) : id_(fork()) {
    // Nothing of the test program's own end may run in the child.
    if (id_ == 0) _exit(Guarded(work));
}

support::ChildProcess::~ChildProcess() {
    if (id_ <= 0) return;
    Kill();
    Wait();
}

void support::ChildProcess::Kill() {
    kill(id_, SIGKILL);
}

int support::ChildProcess::Wait() {
    int status = 0;
    waitpid(id_, &status, 0);
    id_ = 0;
    return WIFSIGNALED(status) ? -WTERMSIG(status) : WEXITSTATUS(status);
}

int support::RunInChild(const std::function<int()>& work) {
    return ChildProcess(work).Wait();
}
