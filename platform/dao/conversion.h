#pragma once

#include <chrono>
#include <filesystem>
#include <string>
#include <vector>

#include "dao/engine.h"
#include "jet/schema.h"
#include "jetfile/reader.h"

namespace daoengine {

// How long a process waits for another one that is converting the same file.
constexpr std::chrono::milliseconds kConversionPatience{5000};

// Puts the engine's own format in the place of a Jet file: whole or not at all, and durable. The original
// stays beside it as "<name>.jet". Does nothing when another process has converted it meanwhile. Throws
// jet::Error: 3045 when another process is converting it still, 3051 when the file or its folder cannot be
// written, 3026 when the disk is full, and what the reader throws; the file is as it was then, and nothing is
// left beside it.
void ConvertFile(const std::filesystem::path& path, const std::string& password,
                 std::chrono::milliseconds patience = kConversionPatience);

// Fills an empty database with all that a Jet file holds: tables, rows, indexes, stored queries, password.
void CopyDatabase(const jetfile::Reader& reader, const std::string& password, Engine& target);

// The tables of a Jet file that a conversion copies.
std::vector<const jet::Table*> TablesToConvert(const jetfile::Reader& reader);

}  // namespace daoengine
