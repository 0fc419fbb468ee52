#include "system/durable_file.h"

namespace fs = std::filesystem;

void fileio::KeepUnderSecondName(const fs::path& path, const fs::path& secondName) {
    fs::path fresh = secondName;
    fresh += ".new";
    fs::remove(fresh);
    std::error_code cannotLink;
    fs::create_hard_link(path, fresh, cannotLink);
    if (cannotLink) {
        fs::copy_file(path, fresh);
        FlushFile(fresh);
    }
    RenameOver(fresh, secondName);
    // Renaming does nothing when both names are links to one file.
    fs::remove(fresh);
}
