#include "dao/file_kind.h"

#include <array>
#include <cstring>
#include <fstream>

#include "dao/errors.h"
#include "jetfile/reader.h"
#include "system/file_path.h"
#include "system/open_files.h"

namespace fs = std::filesystem;

namespace daoengine {
namespace {

constexpr int kFileNotFound = 3024;
constexpr int kBadPath = 3044;
constexpr int kCannotOpen = 3051;
constexpr int kUnknownFormat = 3343;

constexpr char kEngineSignature[] = "SQLite format 3";  // with its terminator

void RequireFile(const fs::path& path) {
    std::error_code error;
    const fs::file_status status = fs::status(path, error);
    if (fs::is_regular_file(status)) return;
    if (fs::exists(status) || error == std::errc::permission_denied) Throw(kCannotOpen);
    const fs::path folder = fs::absolute(path, error).parent_path();
    if (!path.empty() && !fs::is_directory(folder, error)) Throw(kBadPath, "The path is not valid.");
    Throw(kFileNotFound);
}

bool HasEngineSignature(const fs::path& path) {
    std::array<char, sizeof kEngineSignature> start{};
    std::ifstream file(path, std::ios::binary);
    if (!file) Throw(kCannotOpen);
    file.read(start.data(), start.size());
    return std::memcmp(start.data(), kEngineSignature, start.size()) == 0;
}

}  // namespace

FileKind KindOf(const fs::path& path) {
    RequireFile(path);
    // Opening and closing a file that the engine has open would drop the engine's locks.
    if (fileio::IsOpenHere(path) || HasEngineSignature(path)) return FileKind::Engine;
    if (jetfile::ProbeFile(fileio::NarrowPath(path)) == jetfile::FileKind::Other) Throw(kUnknownFormat);
    return FileKind::Jet;
}

}  // namespace daoengine
