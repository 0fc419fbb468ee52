#pragma once

#include <kalodata/io.h>

#include "session/query_frame.h"

// How rows of I/O tables fill the record of a signal.
namespace kalo {

static_assert(sizeof(KaloIoSignal) == 44);
static_assert(offsetof(KaloIoSignal, physical_name) == 20);
static_assert(offsetof(KaloIoSignal, positive_logic) == 40 && offsetof(KaloIoSignal, reverse) == 42);

// The names and the polarity of the current row; a missing name is cleared, a missing polarity is 0. `end` is
// the end of the caller's records.
void ReadTerminal(Rows& rows, KaloIoSignal& signal, const KaloIoSignal* end);

// The same with the row's own `reverse`.
void ReadSignal(Rows& rows, KaloIoSignal& signal, const KaloIoSignal* end);

}  // namespace kalo
