#include "windows.h"

// Calls the module's DllMain when the module (a shared library, or a program that contains it) is loaded and
// unloaded, as Windows does. Linked into every module that has a DllMain.

extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID reserved);

namespace {

// Its address tells modules apart, as an instance handle does.
char thisModule;

__attribute__((constructor)) void AttachProcess() {
    DllMain(&thisModule, DLL_PROCESS_ATTACH, nullptr);
}

__attribute__((destructor)) void DetachProcess() {
    DllMain(&thisModule, DLL_PROCESS_DETACH, nullptr);
}

}  // namespace
