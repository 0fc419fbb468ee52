#pragma once

#include <functional>
#include <memory>
#include <string>

#include "jet/schema.h"
#include "jetfile/reader.h"

struct sqlite3;

namespace daoengine {

// An open database file of either kind: the engine's own format, or a Jet 3/4 file, which stays as it is
// until Engine() is first asked for. Paths are narrow (in the ANSI code page on Windows, in UTF-8 everywhere
// else).
class DatabaseFile {
  public:
    // Opens a file shared or exclusive. `connect` is ";PWD=…" (narrow), or empty. Throws jet::Error: 3024
    // missing file, 3044 missing folder, 3031 wrong password, 3343 neither format, 3049 damaged, 3045 in use,
    // 3051 cannot be opened or written, 3170 a connect string of another driver.
    static std::unique_ptr<DatabaseFile> Open(const std::string& path, bool exclusive, bool readOnly,
                                              const std::string& connect);
    // Gives freed pages back, writes the log into the file and closes it. Throws nothing.
    ~DatabaseFile();
    DatabaseFile(const DatabaseFile&) = delete;
    DatabaseFile& operator=(const DatabaseFile&) = delete;

    // The engine's connection. Of a Jet file opened for writing, the first call converts the file: whole,
    // atomic and durable. One opened read-only is converted into a private temporary database, and the file
    // stays untouched. Throws jet::Error (3045 when another process is converting and does not finish, 3051,
    // 3049, 3026 …).
    sqlite3* Engine();

    // Whether Engine() has nothing left to convert.
    bool Converted() const;

    // The number of user tables at the time of the call; an unconverted Jet file is not converted for it.
    int CountTables();

  private:
    class Impl;
    explicit DatabaseFile(std::unique_ptr<Impl> impl);
    std::unique_ptr<Impl> impl_;
};

// Reads a table of another file, or of the same one, of either kind: returns its definition and hands its
// rows to `visit` in storage order. Converts and locks nothing. `password` is in UTF-8. Throws jet::Error as
// DatabaseFile::Open does, and 3078 for a missing table.
jet::Table ReadExternalTable(const std::string& path, const std::string& password, const std::string& table,
                             const std::function<void(const jetfile::Row&)>& visit);

}  // namespace daoengine
