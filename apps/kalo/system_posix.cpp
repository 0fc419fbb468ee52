#include "system.h"

#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <thread>

#include "failure.h"

namespace cli {
namespace {

// Waits for one of the blocked signals, cleans up, and lets the signal do what it does.
void AwaitSignal(const sigset_t& signals, const std::function<void()>& cleanUp) {
    int signal = 0;
    if (sigwait(&signals, &signal) != 0) return;
    cleanUp();
    std::signal(signal, SIG_DFL);
    sigset_t received;
    sigemptyset(&received);
    sigaddset(&received, signal);
    pthread_sigmask(SIG_UNBLOCK, &received, nullptr);
    raise(signal);
}

}  // namespace

void PrepareStreams() {
    std::signal(SIGPIPE, SIG_IGN);
}

bool ReaderIsGone() {
    return errno == EPIPE;
}

bool ErrorStreamIsTerminal() {
    return isatty(STDERR_FILENO) == 1;
}

std::filesystem::path PathFromSystem(const std::string& text) {
    return text;
}

std::string SystemFromPath(const std::filesystem::path& path) {
    return path.string();
}

std::filesystem::path MakePrivateDirectory() {
    std::error_code error;
    std::string name = (std::filesystem::temp_directory_path(error) / "kalo-XXXXXX").string();
    if (error || mkdtemp(name.data()) == nullptr)
        throw Failure("no temporary directory can be made; is TMPDIR a writable directory?");
    return name;
}

void OnInterruption(std::function<void()> cleanUp) {
    sigset_t signals;
    sigemptyset(&signals);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP})
        sigaddset(&signals, signal);
    // Threads that are started later inherit the mask, so that the one below alone sees the signals.
    pthread_sigmask(SIG_BLOCK, &signals, nullptr);
    std::thread([signals, cleanUp = std::move(cleanUp)] { AwaitSignal(signals, cleanUp); }).detach();
}

}  // namespace cli
