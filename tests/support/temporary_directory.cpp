#include "support/temporary_directory.h"

#include <atomic>
#include <chrono>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace fs = std::filesystem;

namespace {

// Tests run in several processes at once; the clock tells them apart, the counter the directories of one
// process.
std::string UniqueName() {
    static std::atomic<unsigned> counter{0};
    const auto now = std::chrono::steady_clock::now().time_since_epoch().count();
    return "kalodata-" + std::to_string(now) + "-" + std::to_string(++counter);
}

fs::path MakeDirectory() {
    for (;;) {
        const fs::path path = fs::temp_directory_path() / UniqueName();
        if (fs::create_directory(path)) return path;
    }
}

}  // namespace

support::TemporaryDirectory::TemporaryDirectory() : path_(MakeDirectory()) {}

support::TemporaryDirectory::~TemporaryDirectory() {
    std::error_code ignored;
    fs::remove_all(path_, ignored);
}

std::string support::ReadFile(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void support::WriteFile(const fs::path& path, const std::string& contents) {
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    file.write(contents.data(), static_cast<std::streamsize>(contents.size()));
    if (!file.flush()) throw std::runtime_error("cannot write " + path.string());
}

// On Windows copy_file takes any two files for the same one, and overwrites none.
void support::CopyOver(const fs::path& from, const fs::path& to) {
    fs::remove(to);
    fs::copy_file(from, to);
}

std::string support::CopySample(const TemporaryDirectory& directory, const std::string& sample,
                                const std::string& name) {
    const fs::path target = directory.Path() / name;
    CopyOver(fs::path(KALO_SAMPLE_DIR) / sample, target);
    fs::permissions(target, fs::perms::owner_write, fs::perm_options::add);
    return target.string();
}
