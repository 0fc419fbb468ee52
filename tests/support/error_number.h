#pragma once

#include "jet/error.h"

namespace support {

// The DAO error number that `work` throws as jet::Error; 0 when it throws none.
template <typename Work>
int ErrorNumberOf(Work&& work) {
    try {
        work();
        return 0;
    } catch (const jet::Error& error) {
        return error.Number();
    }
}

}  // namespace support
