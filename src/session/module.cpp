#include <afxdao.h>

#include "session/database.h"
#include "session/session_state.h"

namespace {

AFX_EXTENSION_MODULE g_module;

// A refused registration makes the load fail; the system then unloads the library again, which deletes the
// lock.
BOOL Attach(HINSTANCE instance) {
    kalo::CreateLock();
    if (!AfxInitExtensionModule(g_module, instance)) return FALSE;
    new CDynLinkLibrary(g_module);  // the framework keeps it in its chain and deletes it with the module
    kalo::ResetSession();
    return TRUE;
}

// Leaves the database object as it is.
void Detach() {
    kalo::DeleteLock();
    AfxTermExtensionModule(g_module);
}

}  // namespace

// Called by the system when the library is loaded and unloaded.
extern "C" BOOL APIENTRY DllMain(HINSTANCE instance, DWORD reason, LPVOID /*reserved*/) {
    if (reason == DLL_PROCESS_ATTACH) return Attach(instance);
    if (reason == DLL_PROCESS_DETACH) Detach();
    return TRUE;
}
