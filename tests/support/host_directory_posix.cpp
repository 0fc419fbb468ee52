#include <host_program.h>

#include "support/host_directory.h"

namespace support {

std::filesystem::path SetHostDirectory(const std::filesystem::path& wanted) {
    SetHostProgramPath((wanted / "host\\program").string());
    return wanted;
}

void ResetHostDirectory() {
    SetHostProgramPath({});
}

}  // namespace support
