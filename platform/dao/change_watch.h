#pragma once

#include <array>
#include <cstdint>

struct sqlite3;

namespace daoengine {

// Tells whether anybody has changed a database file, without reading it. In write-ahead log mode every commit
// of every process writes a new header into the shared memory of the log's index; comparing it with the one
// seen last costs no lock and no system call.
class ChangeWatch {
  public:
    ChangeWatch() = default;
    ~ChangeWatch();
    ChangeWatch(const ChangeWatch&) = delete;
    ChangeWatch& operator=(const ChangeWatch&) = delete;

    // Starts to watch; the connection has read the database before.
    void Attach(sqlite3* engine);

    // Whether what is read now is of the epoch told last. When not, nothing that was read may be kept:
    // changes cannot be told, or a reading that began before the last change still shows the file as it was.
    bool Usable() const { return private_ || (header_ != nullptr && settled_ == epoch_); }

    // Grows whenever another connection may have changed the file.
    std::uint64_t Epoch();

    // Enclose one committing statement of the own connection, which by itself does not change the epoch.
    void OwnWriteBegins();
    void OwnWriteEnded();

  private:
    static constexpr std::size_t kWords = 12;
    using Header = std::array<std::uint32_t, kWords>;

    Header Read() const;
    bool Differs() const;  // from the header seen last
    static int OnCommit(void* self, sqlite3* engine, const char* name, int pages);

    const volatile std::uint32_t* header_ = nullptr;
    Header seen_{};
    std::uint64_t epoch_ = 1;
    std::uint64_t settled_ = 0;     // the last epoch at which no reading was under way
    std::uint32_t ownCommits_ = 0;  // since OwnWriteBegins
    sqlite3* engine_ = nullptr;     // set while commits are told
    bool private_ = false;          // a database that no other connection can reach
};

}  // namespace daoengine
