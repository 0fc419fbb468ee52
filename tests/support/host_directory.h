#pragma once

#include <filesystem>

namespace support {

// Makes `wanted` the directory of the host program, where the shipped database is looked for, if the system
// lets a process say so. Returns the directory that it is then.
std::filesystem::path SetHostDirectory(const std::filesystem::path& wanted);

// Back to the directory of the running program.
void ResetHostDirectory();

}  // namespace support
