#include "mfc/extension_module.h"

#include <atomic>

#include "afx.h"

// There is no framework to register with here: a module counts as registered from its initialisation to its
// end.

namespace {

constinit std::atomic<bool> refused{false};
constinit std::atomic<int> registered{0};

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
    state = {};
}

CDynLinkLibrary::CDynLinkLibrary(AFX_EXTENSION_MODULE& /*state*/) {}
