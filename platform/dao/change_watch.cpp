#include "dao/change_watch.h"

#include <sqlite3.h>

#include <string>

#include "dao/limits.h"

namespace daoengine {
namespace {

constexpr std::size_t kChangeCounter = 2;         // word that each commit counts up
constexpr std::uint32_t kIndexVersion = 3007000;  // first word of the format that this class knows
constexpr int kRegionSize = 32768;

std::string Setting(sqlite3* engine, const char* pragma) {
    sqlite3_stmt* statement = nullptr;
    std::string value;
    if (sqlite3_prepare_v2(engine, pragma, -1, &statement, nullptr) == SQLITE_OK &&
        sqlite3_step(statement) == SQLITE_ROW)
        value = reinterpret_cast<const char*>(sqlite3_column_text(statement, 0));
    sqlite3_finalize(statement);
    return value;
}

bool IsAlone(sqlite3* engine) {
    const char* const path = sqlite3_db_filename(engine, "main");
    return path == nullptr || *path == '\0' || Setting(engine, "PRAGMA main.locking_mode") == "exclusive";
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

ChangeWatch::~ChangeWatch() {
    if (engine_ != nullptr) sqlite3_wal_autocheckpoint(engine_, limits::kLogPages);
}

void ChangeWatch::Attach(sqlite3* engine) {
    private_ = IsAlone(engine);
    ++epoch_;
    if (private_ || Setting(engine, "PRAGMA main.journal_mode") != "wal") return;
    header_ = MappedIndex(engine);
    if (header_ == nullptr) return;
    if (header_[0] != kIndexVersion) {
        header_ = nullptr;
        return;
    }
    seen_ = Read();
    engine_ = engine;
    sqlite3_wal_hook(engine, OnCommit, this);
}

// Takes the place of the hook that writes the log into the file, and does so itself.
int ChangeWatch::OnCommit(void* self, sqlite3* engine, const char* name, int pages) {
    ++static_cast<ChangeWatch*>(self)->ownCommits_;
    if (pages >= limits::kLogPages)
        sqlite3_wal_checkpoint_v2(engine, name, SQLITE_CHECKPOINT_PASSIVE, nullptr, nullptr);
    return SQLITE_OK;
}

ChangeWatch::Header ChangeWatch::Read() const {
    Header header;
    for (std::size_t word = 0; word < kWords; ++word)
        header[word] = header_[word];
    return header;
}

bool ChangeWatch::Differs() const {
    for (std::size_t word = 0; word < kWords; ++word)
        if (header_[word] != seen_[word]) return true;
    return false;
}

std::uint64_t ChangeWatch::Epoch() {
    if (header_ == nullptr) return epoch_;
    if (Differs()) {
        seen_ = Read();
        ++epoch_;
    }
    if (settled_ != epoch_ && sqlite3_txn_state(engine_, "main") == SQLITE_TXN_NONE) settled_ = epoch_;
    return epoch_;
}

void ChangeWatch::OwnWriteBegins() {
    Epoch();
    ownCommits_ = 0;
}

void ChangeWatch::OwnWriteEnded() {
    if (header_ == nullptr) return;
    const Header now = Read();
    // More commits than the own ones, or none and yet a new header: others were at work too.
    const bool onlyOwn = now[kChangeCounter] == seen_[kChangeCounter] + ownCommits_;
    if (!onlyOwn || (ownCommits_ == 0 && now != seen_)) ++epoch_;
    seen_ = now;
}

}  // namespace daoengine
