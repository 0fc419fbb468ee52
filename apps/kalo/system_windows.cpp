#include "system.h"

#include <windows.h>

#include <fcntl.h>
#include <io.h>

#include <cerrno>
#include <cstdio>

#include "failure.h"
#include "text.h"

namespace cli {
namespace {

std::function<void()> g_cleanUp;

BOOL WINAPI HandleControl(DWORD) {
    g_cleanUp();
    return FALSE;  // the system's own handler ends the program
}

}  // namespace

void PrepareStreams() {
    SetConsoleOutputCP(CP_UTF8);
    _setmode(_fileno(stdout), _O_BINARY);
}

bool ReaderIsGone() {
    // A closed pipe fails with EINVAL here.
    return errno == EPIPE || errno == EINVAL;
}

bool ErrorStreamIsTerminal() {
    return _isatty(_fileno(stderr)) != 0;
}

std::filesystem::path PathFromSystem(const std::string& text) {
    const std::string utf8 = Utf8FromSystem(text);
    return std::filesystem::path(std::u8string(utf8.begin(), utf8.end()));
}

std::string SystemFromPath(const std::filesystem::path& path) {
    const std::u8string utf8 = path.u8string();
    return SystemFromUtf8(std::string(utf8.begin(), utf8.end()));
}

std::filesystem::path MakePrivateDirectory() {
    std::error_code error;
    const std::filesystem::path parent = std::filesystem::temp_directory_path(error);
    const std::string stem = "kalo-" + std::to_string(GetCurrentProcessId()) + "-";
    for (int attempt = 0; !error && attempt < 1000; ++attempt) {
        const std::filesystem::path directory = parent / (stem + std::to_string(attempt));
        if (std::filesystem::create_directory(directory, error)) return directory;
    }
    throw Failure("no temporary directory can be made; is TEMP a writable directory?");
}

void OnInterruption(std::function<void()> cleanUp) {
    g_cleanUp = std::move(cleanUp);
    SetConsoleCtrlHandler(HandleControl, TRUE);
}

}  // namespace cli
