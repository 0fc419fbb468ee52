#include <windows.h>

#include "system/constant_data.h"

bool IsConstantData(const void* address) {
    MEMORY_BASIC_INFORMATION own{};
    MEMORY_BASIC_INFORMATION asked{};
    if (VirtualQuery(reinterpret_cast<const void*>(&IsConstantData), &own, sizeof own) == 0) return false;
    if (VirtualQuery(address, &asked, sizeof asked) == 0) return false;
    return asked.AllocationBase == own.AllocationBase && asked.Protect == PAGE_READONLY;
}
