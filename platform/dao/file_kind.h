#pragma once

#include <filesystem>

namespace daoengine {

enum class FileKind { Engine, Jet };

// Finds a database file's kind by its first bytes. Throws jet::Error: 3044 missing folder, 3024 missing file,
// 3051 not readable, 3343 neither kind.
FileKind KindOf(const std::filesystem::path& path);

}  // namespace daoengine
