#include "dao/change_watch.h"

#include <sqlite3.h>

#include <cstring>

namespace daoengine {
namespace {

constexpr std::size_t kChangeCounter = 2;         // word that each commit counts up
constexpr std::uint32_t kIndexVersion = 3007000;  // first word of the format that this class knows
constexpr int kRegionSize = 32768;

bool UsesWriteAheadLog(sqlite3* engine) {
    sqlite3_stmt* statement = nullptr;
    bool log = false;
    if (sqlite3_prepare_v2(engine, "PRAGMA main.journal_mode", -1, &statement, nullptr) == SQLITE_OK &&
        sqlite3_step(statement) == SQLITE_ROW)
        log = std::strcmp(reinterpret_cast<const char*>(sqlite3_column_text(statement, 0)), "wal") == 0;
    sqlite3_finalize(statement);
    return log;
}

// The first region of the log's index, as the engine has mapped it.
const volatile std::uint32_t* MappedIndex(sqlite3* engine) {
    sqlite3_file* file = nullptr;
    if (sqlite3_file_control(engine, "main", SQLITE_FCNTL_FILE_POINTER, &file) != SQLITE_OK) return nullptr;
    if (file == nullptr || file->pMethods == nullptr || file->pMethods->iVersion < 2) return nullptr;
    volatile void* region = nullptr;
    if (file->pMethods->xShmMap(file, 0, kRegionSize, 0, &region) != SQLITE_OK) return nullptr;
    return static_cast<const volatile std::uint32_t*>(region);
}

}  // namespace

void ChangeWatch::Attach(sqlite3* engine) {
    const char* path = sqlite3_db_filename(engine, "main");
    private_ = path == nullptr || *path == '\0';
    header_ = !private_ && UsesWriteAheadLog(engine) ? MappedIndex(engine) : nullptr;
    if (header_ != nullptr && header_[0] != kIndexVersion) header_ = nullptr;
    if (header_ != nullptr) seen_ = Read();
    ++epoch_;
}

ChangeWatch::Header ChangeWatch::Read() const {
    Header header;
    for (std::size_t word = 0; word < kWords; ++word)
        header[word] = header_[word];
    return header;
}

std::uint64_t ChangeWatch::Epoch() {
    if (header_ == nullptr) return epoch_;
    const Header now = Read();
    if (now != seen_) {
        seen_ = now;
        ++epoch_;
    }
    return epoch_;
}

void ChangeWatch::OwnWriteEnded() {
    if (header_ == nullptr) return;
    const Header now = Read();
    if (now[kChangeCounter] != seen_[kChangeCounter] + 1 && now != seen_) ++epoch_;
    seen_ = now;
}

}  // namespace daoengine
