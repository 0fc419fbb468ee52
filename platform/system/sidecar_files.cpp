#include "system/sidecar_files.h"

std::error_code fileio::RemoveSidecarFiles(const std::filesystem::path& database) {
    std::error_code firstError;
    for (const char* const suffix : {"-wal", "-shm", "-journal"}) {
        std::filesystem::path sidecar = database;
        sidecar += suffix;
        std::error_code error;
        std::filesystem::remove(sidecar, error);
        if (error && !firstError) firstError = error;
    }
    return firstError;
}
