#include "mfc/extension_module.h"

#include <atomic>
#include <memory>
#include <vector>

#include "afx.h"

// There is no framework to register with here: a module counts as registered from its initialisation to its
// end.

namespace {

constinit std::atomic<bool> refused{false};
constinit std::atomic<int> registered{0};

// The libraries that were chained for a module, which owns them from then on.
struct ChainedLibrary {
    const AFX_EXTENSION_MODULE* module;
    std::unique_ptr<CDynLinkLibrary> library;
};

std::vector<ChainedLibrary>& Chain() {
    static std::vector<ChainedLibrary>& chain = *new std::vector<ChainedLibrary>;
    return chain;
}

}  // namespace

void mfc::RefuseExtensionModules(bool refuse) {
    refused = refuse;
}

int mfc::CountExtensionModules() {
    return registered;
}

BOOL AfxInitExtensionModule(AFX_EXTENSION_MODULE& state, HINSTANCE module) {
    if (refused) return FALSE;
    if (!state.bInitialized) ++registered;
    state.bInitialized = TRUE;
    state.hModule = module;
    return TRUE;
}

void AfxTermExtensionModule(AFX_EXTENSION_MODULE& state) {
    if (state.bInitialized) --registered;
    std::erase_if(Chain(), [&state](const ChainedLibrary& chained) { return chained.module == &state; });
    state = {};
}

CDynLinkLibrary::CDynLinkLibrary(AFX_EXTENSION_MODULE& state) {
    Chain().push_back({&state, std::unique_ptr<CDynLinkLibrary>(this)});
}
