#pragma once

#include <filesystem>
#include <memory>

struct sqlite3;

namespace daoengine {

struct ConnectionCloser {
    void operator()(sqlite3* connection) const;
};

// A connection of the embedded engine, set up as all of them are.
using Connection = std::unique_ptr<sqlite3, ConnectionCloser>;

enum class Access {
    ReadOnly,   // changes nothing, and needs no right to write
    Shared,     // others may read and write too
    Exclusive,  // keeps all others out
};

// Opens a database file in the engine's own format and reads its schema. Throws jet::Error: 3045 in use, 3051
// cannot be opened or written, 3343 not that format, 3049 damaged.
Connection OpenConnection(const std::filesystem::path& path, Access access);

// Makes a database file to be filled in one go. What it holds is worth nothing before it is closed and
// flushed.
Connection CreateDatabase(const std::filesystem::path& path);

// Makes a database that only its connection sees and that ends with it.
Connection CreatePrivateDatabase();

// Runs statements that give no rows of interest; throws jet::Error.
void RunScript(sqlite3* connection, const char* script);

}  // namespace daoengine
