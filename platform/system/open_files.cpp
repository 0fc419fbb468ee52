#include "system/open_files.h"

#include <algorithm>
#include <mutex>
#include <vector>

namespace fs = std::filesystem;

namespace {

struct Register {
    std::mutex mutex;
    std::vector<fs::path> paths;
};

// Never destroyed: a database object of the host may outlive it.
Register& OpenFiles() {
    static Register& files = *new Register;
    return files;
}

bool IsSameFile(const fs::path& left, const fs::path& right) {
    std::error_code missing;
    return left == right || fs::equivalent(left, right, missing);
}

}  // namespace

fileio::OpenFileMark::OpenFileMark(const fs::path& path) : path_(path) {
    const std::lock_guard lock(OpenFiles().mutex);
    OpenFiles().paths.push_back(path_);
}

fileio::OpenFileMark::~OpenFileMark() {
    const std::lock_guard lock(OpenFiles().mutex);
    std::vector<fs::path>& paths = OpenFiles().paths;
    paths.erase(std::find(paths.begin(), paths.end(), path_));
}

bool fileio::IsOpenHere(const fs::path& path) {
    const std::lock_guard lock(OpenFiles().mutex);
    const std::vector<fs::path>& paths = OpenFiles().paths;
    return std::any_of(paths.begin(), paths.end(),
                       [&](const fs::path& open) { return IsSameFile(open, path); });
}
