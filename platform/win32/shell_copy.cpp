#include <filesystem>
#include <string>
#include <vector>

#include "shellapi.h"
#include "system/file_path.h"
#include "system/open_files.h"
#include "system/sidecar_files.h"

namespace fs = std::filesystem;

namespace {

// The shell's documented answers.
constexpr int kDiskFull = 0x70;
constexpr int kSameFile = 0x71;
constexpr int kSourceDenied = 0x78;
constexpr int kInvalidFiles = 0x7C;
constexpr int kTargetIsFolder = 0x80;
constexpr int kPathTooLong = 0xB7;
constexpr int kSourceUnknown = 0x402;
constexpr int kTargetFailed = 0x10000;
constexpr int kInvalidParameter = 0x57;

std::vector<fs::path> ReadPathList(LPCSTR list) {
    std::vector<fs::path> paths;
    while (list && *list) {
        const std::string path = list;
        paths.push_back(fileio::FilePath(path));
        list += path.size() + 1;
    }
    return paths;
}

int AnswerToCopyError(const std::error_code& error) {
    if (error == std::errc::no_space_on_device) return kDiskFull;
    if (error == std::errc::filename_too_long) return kPathTooLong;
    return kTargetFailed;
}

int CheckSource(const fs::path& source) {
    std::error_code error;
    const fs::file_status status = fs::status(source, error);
    if (error == std::errc::permission_denied) return kSourceDenied;
    return fs::is_regular_file(status) ? 0 : kSourceUnknown;
}

int CheckTarget(const fs::path& source, const fs::path& target) {
    std::error_code error;
    if (fs::equivalent(source, target, error)) return kSameFile;
    if (fs::is_directory(target, error)) return kTargetIsFolder;
    if (fileio::IsInUse(target)) return kTargetFailed;
    return fs::is_directory(fs::absolute(target, error).parent_path(), error) ? 0 : kInvalidFiles;
}

bool IsReadable(const fs::path& source) {
    if (std::FILE* const file = std::fopen(source.c_str(), "rb")) {
        std::fclose(file);
        return true;
    }
    return false;
}

// Copies under another name first, so that the target is never seen half-written.
int CopyContents(const fs::path& source, const fs::path& target) {
    fs::path unfinished = target;
    unfinished += ".copying";
    std::error_code error;
    fs::copy_file(source, unfinished, fs::copy_options::overwrite_existing, error);
    if (!error) error = fileio::RemoveSidecarFiles(target);
    if (!error) fs::rename(unfinished, target, error);
    if (!error) return 0;
    std::error_code ignored;
    fs::remove(unfinished, ignored);
    return AnswerToCopyError(error);
}

int CopyOneFile(const fs::path& source, const fs::path& target) {
    if (const int answer = CheckSource(source)) return answer;
    if (const int answer = CheckTarget(source, target)) return answer;
    if (!IsReadable(source)) return kSourceDenied;
    std::error_code missing;
    const fs::path resolved = fs::canonical(target, missing);
    return CopyContents(source, missing ? target : resolved);
}

}  // namespace

int SHFileOperationA(SHFILEOPSTRUCTA* operation) {
    operation->fAnyOperationsAborted = FALSE;
    const std::vector<fs::path> sources = ReadPathList(operation->pFrom);
    const std::vector<fs::path> targets = ReadPathList(operation->pTo);
    if (operation->wFunc != FO_COPY || sources.empty()) return kInvalidParameter;
    if (sources.size() != targets.size()) return kInvalidFiles;
    for (std::size_t i = 0; i < sources.size(); ++i)
        if (const int answer = CopyOneFile(sources[i], targets[i])) return answer;
    return 0;
}
