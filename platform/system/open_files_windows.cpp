#include "system/open_files.h"

// The system itself refuses to remove or replace a file that is open in another process.
bool fileio::IsInUse(const std::filesystem::path& path) {
    return IsOpenHere(path);
}
