#include "jetfile/bytes.h"

#include "jet/error.h"

namespace jetfile {

void ThrowDamaged(const std::string& what) {
    throw jet::Error(3049, "The database file is damaged: " + what + ".");
}

}  // namespace jetfile
