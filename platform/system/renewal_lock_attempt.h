#pragma once

#include "system/renewal_lock.h"

namespace fileio {

// One attempt to take the lock, by the system's means; nullptr while someone else holds it. Throws
// std::system_error.
std::unique_ptr<RenewalLock> TryRenewalLock(const std::filesystem::path& path);

}  // namespace fileio
