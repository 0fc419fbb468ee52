#include "system/durable_file.h"

namespace fs = std::filesystem;

namespace {

void LinkOrCopy(const fs::path& path, const fs::path& secondName) {
    std::error_code cannotLink;
    fs::create_hard_link(path, secondName, cannotLink);
    if (!cannotLink) return;
    fs::copy_file(path, secondName);
    fileio::FlushFile(secondName);
}

}  // namespace

void fileio::KeepUnderSecondName(const fs::path& path, const fs::path& secondName) {
    fs::path fresh = secondName;
    fresh += ".new";
    fs::remove(fresh);
    try {
        LinkOrCopy(path, fresh);
        RenameOver(fresh, secondName);
        // Renaming does nothing when both names are links to one file.
        fs::remove(fresh);
    } catch (const std::system_error&) {
        std::error_code ignored;
        fs::remove(fresh, ignored);
        throw;
    }
}
