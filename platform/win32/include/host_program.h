#pragma once

#include <string>

// Sets what GetModuleFileNameA answers as the host program's path, in place of the running executable's; an
// empty path brings the executable's back.
void SetHostProgramPath(const std::string& path);
