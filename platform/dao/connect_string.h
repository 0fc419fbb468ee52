#pragma once

#include <string>
#include <string_view>

namespace daoengine {

// The parts of a connect string that matter to a database file.
struct ConnectOptions {
    std::string database;
    std::string password;
};

// Reads ";DATABASE=…;PWD=…" (either part may be missing; keys compare without case). A text that does not
// start with a semicolon names a driver for another kind of database: jet::Error 3170.
ConnectOptions ParseConnect(std::string_view connect);

}  // namespace daoengine
