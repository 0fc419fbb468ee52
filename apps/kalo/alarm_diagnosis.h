#pragma once

#include <kalodata/alarms.h>

#include "output.h"

namespace cli {

// Prints an alarm of the axis and its diagnoses that apply to a type mask: confirm, factor, plan, and the
// monitors to look at.
void PrintDiagnoses(const KaloAlarm& alarm, std::uint32_t typeMask, Format format);

}  // namespace cli
