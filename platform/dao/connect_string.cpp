#include "dao/connect_string.h"

#include "dao/errors.h"
#include "jetsql/names.h"

namespace daoengine {
namespace {

constexpr int kDriverNotFound = 3170;

void ReadPart(std::string_view part, ConnectOptions& options) {
    const std::size_t equals = part.find('=');
    if (equals == std::string_view::npos) return;
    const std::string_view key = part.substr(0, equals);
    if (jetsql::SameName(key, "DATABASE")) options.database = part.substr(equals + 1);
    if (jetsql::SameName(key, "PWD")) options.password = part.substr(equals + 1);
}

}  // namespace

ConnectOptions ParseConnect(std::string_view connect) {
    ConnectOptions options;
    if (connect.empty()) return options;
    if (connect.front() != ';')
        Throw(kDriverNotFound, "Could not find the driver that the connect string names.");
    while (!connect.empty()) {
        connect.remove_prefix(1);
        const std::size_t end = std::min(connect.find(';'), connect.size());
        ReadPart(connect.substr(0, end), options);
        connect.remove_prefix(end);
    }
    return options;
}

}  // namespace daoengine
