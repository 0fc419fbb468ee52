#pragma once

#include <functional>

namespace daoengine {

// The points of a conversion between which the state on the disk changes.
enum class ConversionStep {
    Locked,       // no other process converts the file
    Started,      // the unfinished file exists
    TableCopied,  // once per table
    Written,      // the unfinished file is whole, but not yet durable
    Durable,
    OriginalKept,  // the original has its second name
    JournalsRemoved,
    Replaced,  // the converted file has taken the place
    Finished,
};

// What is called at each point, for tests that end the process or look at the disk there. An empty one calls
// nothing.
void SetConversionObserver(std::function<void(ConversionStep)> observer);

// --- For the conversion itself
// -----------------------------------------------------------------------------------

void PassStep(ConversionStep step);

}  // namespace daoengine
