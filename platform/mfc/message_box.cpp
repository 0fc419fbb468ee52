#include "mfc/message_box.h"

#include <mutex>
#include <utility>

namespace {

struct Hook {
    std::mutex mutex;
    mfc::MessageBoxHook function;
};

// Never destroyed: a message may still come while the program ends.
Hook& CurrentHook() {
    static Hook& hook = *new Hook;
    return hook;
}

}  // namespace

mfc::MessageBoxHook mfc::ReplaceMessageBox(MessageBoxHook hook) {
    const std::lock_guard lock(CurrentHook().mutex);
    return std::exchange(CurrentHook().function, std::move(hook));
}

int AfxMessageBox(LPCTSTR text, UINT type, UINT /*helpId*/) {
    mfc::MessageBoxHook hook;
    {
        const std::lock_guard lock(CurrentHook().mutex);
        hook = CurrentHook().function;
    }
    return hook ? hook(text, type) : MessageBoxA(nullptr, text, "Kalodata", type);
}
